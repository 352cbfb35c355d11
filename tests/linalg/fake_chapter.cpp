// Stand-ins for the chapter's reporter and tuning table while they are written
// elsewhere; removed once the chapter has its own.
#include <string>
#include <string_view>

#include "linalg/parallel_lu.hpp"

namespace lbx::linalg {

std::string fake_last_name;
int fake_last_info = 0;

void F06AAZN(std::string_view srname, int info)
{
    fake_last_name = std::string(srname);
    fake_last_info = info;
}

void F07ZAZN(int, std::string_view, int& ival, int setget)
{
    if (setget == 0)
        ival = 64;
}

}  // namespace lbx::linalg

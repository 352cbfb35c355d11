// Catalogue-message triggers of the variate generators, shared with the chapter's
// message test.
#pragma once

#include <vector>

#include "tests/support/messages.hpp"

namespace rt {

// triggers followed by those of the variate generators.
std::vector<lbx::test::Trigger> plus_variates(std::vector<lbx::test::Trigger> triggers);

}  // namespace rt

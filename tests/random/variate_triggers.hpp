// Catalogue-message triggers of the variate generators, shared with the chapter's
// message test.
#pragma once

#include <vector>

#include "tests/support/messages.hpp"

namespace rt {

std::vector<lbx::test::Trigger> continuous_triggers();
std::vector<lbx::test::Trigger> discrete_triggers();
// triggers followed by those of the variate generators.
std::vector<lbx::test::Trigger> plus_variates(std::vector<lbx::test::Trigger> triggers);

}  // namespace rt

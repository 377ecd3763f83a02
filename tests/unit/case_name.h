// Names the cases of a parameterised test by their `name` member.
#pragma once

#include <string>

namespace tamblin {

inline constexpr auto CaseName = [](const auto& testCase) {
    return std::string(testCase.param.name);
};

} // namespace tamblin

// What the quick help window says of its topics.
#pragma once

#include <span>

namespace tamblin {

struct HelpTopic {
    const wchar_t* caption;
    const wchar_t* text; // lines joined with CR LF
};

extern const std::span<const HelpTopic> PurposeTopics; // Label4, shown in Label6
extern const std::span<const HelpTopic> ButtonTopics;  // Label5, shown in Label7

} // namespace tamblin

// What the quick help window says: categories, topics and their texts.
#pragma once

#include <span>

namespace tamblin {

struct HelpTopic {
    const wchar_t* caption;
    const wchar_t* text; // lines joined with CR LF
};

// Label3: in this order the limitations, the button topics, the purpose topics, about.
enum class HelpCategory { Limitations, Buttons, Purposes, About };
std::span<const wchar_t* const> HelpCategoryCaptions();

std::span<const HelpTopic> PurposeTopics(); // Label4, shown in Label6
std::span<const HelpTopic> ButtonTopics();  // Label5, shown in Label7

std::span<const wchar_t* const> LimitationLines(); // Label8
// Label9: what the program is, where it comes from, and the link to the support page.
std::span<const wchar_t* const> AboutLines();
inline constexpr size_t SupportLinkIndex = 2;

extern const wchar_t* const HelpHint;      // Label1
extern const wchar_t* const RemoraCaption; // Check1
extern const wchar_t* const SupportPageAddress;

} // namespace tamblin

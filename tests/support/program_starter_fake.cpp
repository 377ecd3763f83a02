#include "support/program_starter_fake.h"

namespace tamblin {

void ProgramStarterFake::StartMinimised(const std::wstring& commandLine) {
    started.push_back(commandLine);
    if (onStart)
        onStart(commandLine);
    if (failure)
        throw RunTimeError(*failure);
}

void ProgramStarterFake::ShowMinimised(const std::wstring& document) {
    shown.push_back(document);
    if (onShow)
        onShow(document);
}

} // namespace tamblin

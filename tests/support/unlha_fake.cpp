#include "support/unlha_fake.h"

#include "base/text.h"

namespace tamblin {
namespace {

constexpr std::int16_t commandNotUnderstood = -1;

} // namespace

std::int16_t UnlhaFake::Run(void* window, const std::wstring& command, const std::wstring& output,
                            unsigned outputSize) {
    calls.push_back({window, command, output, outputSize});
    constexpr std::wstring_view start = L"x \"";
    if (!StartsWith(command, start) || !command.ends_with(L'"') || command.size() <= start.size())
        return commandNotUnderstood;
    const std::wstring archive(WithoutLast(command.substr(start.size()), 1));
    return onUnpack ? onUnpack(archive) : std::int16_t{0};
}

} // namespace tamblin

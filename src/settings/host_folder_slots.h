// The host folders: those registered, and behind them what a search has found so far.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace tamblin {

inline constexpr std::int16_t HostFolderLimit = 10;

struct HostFolderSlots {
    // Slots 1 to HostFolderCount hold the registered ones exactly as they were entered, those
    // behind them to WorkingFolderCount the found ones. Slot 0 is unused, slot 11 is spare room.
    std::array<std::wstring, 12> HostFolders;
    std::int16_t HostFolderCount = 0;
    std::int16_t WorkingFolderCount = 0;

    using Slots = std::span<const std::wstring>;
    Slots Registered() const { return UpTo(HostFolderCount); }
    Slots RegisteredAndFound() const { return UpTo(WorkingFolderCount); }

    // Character by character.
    bool IsRegistered(const std::wstring& folder) const;
    bool IsFull() const { return HostFolderCount >= HostFolderLimit; }

    // Behind those registered already. What is there already, and the limit, are the callers'
    // affair; a slot that there is not is a fatal RunTimeError 9.
    void Register(const std::wstring& folder) { Put(++HostFolderCount, folder); }
    void Put(std::int16_t slot, const std::wstring& folder);

    void BeginSearch() { WorkingFolderCount = HostFolderCount; }
    // Behind those found already; with ten in the list each takes the tenth slot.
    void AddFound(const std::wstring& folder);
    void ForgetFound();

  private:
    Slots UpTo(std::int16_t count) const {
        return Slots(HostFolders).subspan(1, static_cast<size_t>(count));
    }
};

} // namespace tamblin

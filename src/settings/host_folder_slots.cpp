#include "settings/host_folder_slots.h"

#include <algorithm>

#include "base/run_time_error.h"

namespace tamblin {

bool HostFolderSlots::IsRegistered(const std::wstring& folder) const {
    const Slots registered = Registered();
    return std::find(registered.begin(), registered.end(), folder) != registered.end();
}

void HostFolderSlots::Put(std::int16_t slot, const std::wstring& folder) {
    if (static_cast<size_t>(slot) >= HostFolders.size())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange).AsFatal();
    HostFolders[static_cast<size_t>(slot)] = folder;
}

void HostFolderSlots::AddFound(const std::wstring& folder) {
    WorkingFolderCount = std::min<std::int16_t>(WorkingFolderCount, HostFolderLimit - 1);
    Put(++WorkingFolderCount, folder);
}

void HostFolderSlots::ForgetFound() {
    for (std::int16_t slot = HostFolderCount; slot < WorkingFolderCount;)
        Put(++slot, {});
}

} // namespace tamblin

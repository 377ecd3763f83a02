#include "base/device_name.h"

#include <gtest/gtest.h>

namespace tamblin {
namespace {

TEST(IsDeviceName, KnowsDevicesInEveryGuise) {
    for (const wchar_t* name :
         {L"CON", L"con", L"NUL.txt", L"aux.tar.gz", L"PRN ", L"nul .x", L"COM1", L"lpt9.obl",
          L"COM\x00B2", L"CONIN$", L"conout$", L"Clock$"})
        EXPECT_TRUE(IsDeviceName(name)) << name;
}

TEST(IsDeviceName, LeavesOtherNamesAlone) {
    for (const wchar_t* name : {L"", L"CONS", L"xCON", L"COM", L"COM0", L"COM10", L"LPT", L"NULL",
                                L".CON", L"a.nul", L"ＣＯＮ"})
        EXPECT_FALSE(IsDeviceName(name)) << name;
}

} // namespace
} // namespace tamblin

// Which texts can be paths, and which names are devices.
#include "platform/path_form.h"

#include <gtest/gtest.h>

#include <string>

#include "base/file_name.h"

namespace tamblin {
namespace {

TEST(IsFullPath, NeitherDriveNorFolderIsLeftOpen) {
    for (const wchar_t* path :
         {L"C:\\", L"c:/a", L"C:\\a\\..", L"\\\\server\\share", L"//server/share"})
        EXPECT_TRUE(IsFullPath(path)) << path;
    for (const wchar_t* path : {L"", L"C:", L"C:a", L"a", L"\\a", L".", L"..\\a", L"1:\\a", L"C"})
        EXPECT_FALSE(IsFullPath(path)) << path;
}

TEST(IsWellFormedPath, TakesEveryFormOfAPath) {
    for (const wchar_t* path :
         {L"", L".", L"..", L"C:", L"c:", L"C:\\", L"C:a", L"C:\\a b\\表.txt", L"\\a", L"a/b",
          L"\\\\server\\share\\a", L"C:\\a\\\\b\\", L"a.b.c", L"a'&%$#!;=+,[]{}~@^`()"})
        EXPECT_TRUE(IsWellFormedPath(path)) << path;
}

TEST(IsWellFormedPath, RefusesWhatNoDriveTakes) {
    for (const wchar_t* path :
         {L"*", L"a?", L"a<", L">a", L"a|b", L"\"a\"", L"C:\\*.*", L"a\x01", L"a\nb", L"\t"})
        EXPECT_FALSE(IsWellFormedPath(path)) << path;
    EXPECT_FALSE(IsWellFormedPath(std::wstring(L"a\0b", 3)));
}

TEST(IsWellFormedPath, TakesAColonAfterADriveLetterOnly) {
    for (const wchar_t* path : {L"a:b:c", L"C:\\a:b", L"a\\b:", L"::", L":", L"1:\\a", L"\\C:\\a",
                                L"C::$DATA", L"表:\\a", L"@:\\a", L"[:\\a", L"`:\\a", L"{:\\a"})
        EXPECT_FALSE(IsWellFormedPath(path)) << path;
    for (const wchar_t* path : {L"A:\\a", L"Z:\\a", L"a:\\a", L"z:\\a"})
        EXPECT_TRUE(IsWellFormedPath(path)) << path;
}

TEST(IsWellFormedPath, RefusesTheNameSpacesBesideTheDrives) {
    for (const wchar_t* path : {L"\\\\?\\C:\\a", L"\\\\.\\C:", L"//./pipe/a", L"\\\\."})
        EXPECT_FALSE(IsWellFormedPath(path)) << path;
}

TEST(IsWellFormedPath, RefusesNamesThatAreTooLong) {
    EXPECT_TRUE(IsWellFormedPath(std::wstring(255, L'a') + L"\\" + std::wstring(255, L'b')));
    EXPECT_FALSE(IsWellFormedPath(std::wstring(256, L'a')));
    EXPECT_FALSE(IsWellFormedPath(L"C:\\" + std::wstring(256, L'a') + L"\\b"));
}

TEST(IsWellFormedPath, RefusesDevices) {
    EXPECT_FALSE(IsWellFormedPath(L"C:\\a\\nul"));
    EXPECT_FALSE(IsWellFormedPath(L"C:\\con\\a"));
}

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

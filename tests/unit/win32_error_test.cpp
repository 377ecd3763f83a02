// Windows' error codes in the program's numbering.
#ifdef _WIN32

#include "platform/win32/win32_error.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "support/thrown_number.h"

namespace tamblin {
namespace {

int Number(DWORD code, Attempt attempt = Attempt::OnFile) {
    return static_cast<int>(ErrorNumberOf(code, attempt));
}

TEST(Win32Error, TranslatesWhatFilesRunInto) {
    EXPECT_EQ(Number(ERROR_FILE_NOT_FOUND), 53);
    EXPECT_EQ(Number(ERROR_PATH_NOT_FOUND), 76);
    EXPECT_EQ(Number(ERROR_ACCESS_DENIED), 75);
    EXPECT_EQ(Number(ERROR_WRITE_PROTECT), 75);
    EXPECT_EQ(Number(ERROR_SHARING_VIOLATION), 70);
    EXPECT_EQ(Number(ERROR_LOCK_VIOLATION), 70);
    EXPECT_EQ(Number(ERROR_ALREADY_EXISTS), 58);
    EXPECT_EQ(Number(ERROR_FILE_EXISTS), 58);
    EXPECT_EQ(Number(ERROR_DISK_FULL), 61);
    EXPECT_EQ(Number(ERROR_HANDLE_DISK_FULL), 61);
    EXPECT_EQ(Number(1295), 61); // the user's quota is used up
    EXPECT_EQ(Number(ERROR_TOO_MANY_OPEN_FILES), 67);
    EXPECT_EQ(Number(ERROR_NOT_ENOUGH_MEMORY), 7);
    EXPECT_EQ(Number(ERROR_INVALID_NAME), 52);
    EXPECT_EQ(Number(ERROR_NOT_SAME_DEVICE), 75);
    EXPECT_EQ(Number(362), 75); // a folder kept in a cloud, and its program does not run
    EXPECT_EQ(Number(395), 75);
}

TEST(Win32Error, TellsTheStatesOfADriveApartByTheAttempt) {
    EXPECT_EQ(Number(ERROR_NOT_READY), 71);
    EXPECT_EQ(Number(ERROR_NOT_READY, Attempt::Find), 71);
    EXPECT_EQ(Number(ERROR_NOT_READY, Attempt::List), 68);
    EXPECT_EQ(Number(ERROR_NO_MEDIA_IN_DRIVE, Attempt::EnterFolder), 68);
    EXPECT_EQ(Number(0x80310000), 71); // encrypted and locked
    EXPECT_EQ(Number(0x80310000, Attempt::List), 68);
    EXPECT_EQ(Number(ERROR_BAD_NETPATH), 76);
    EXPECT_EQ(Number(ERROR_BAD_NETPATH, Attempt::Find), 52);
    EXPECT_EQ(Number(ERROR_BAD_NETPATH, Attempt::List), 68);
    EXPECT_EQ(Number(ERROR_INVALID_DRIVE, Attempt::Find), 52);
    EXPECT_EQ(Number(ERROR_INVALID_DRIVE, Attempt::EnterFolder), 68);
}

TEST(Win32Error, TellsWhatIsWrongWithFoldersByTheAttempt) {
    EXPECT_EQ(Number(ERROR_ALREADY_EXISTS, Attempt::MakeFolder), 75);
    EXPECT_EQ(Number(ERROR_DIR_NOT_EMPTY, Attempt::RemoveFolder), 75);
    EXPECT_EQ(Number(ERROR_SHARING_VIOLATION, Attempt::RemoveFolder), 75);
    EXPECT_EQ(Number(ERROR_FILE_NOT_FOUND, Attempt::RemoveFolder), 76);
    EXPECT_EQ(Number(ERROR_FILE_NOT_FOUND, Attempt::List), 76);
    EXPECT_EQ(Number(ERROR_DIRECTORY, Attempt::List), 76);
}

TEST(Win32Error, TakesAProgramWithoutAFolderForMissing) {
    EXPECT_EQ(Number(ERROR_PATH_NOT_FOUND, Attempt::StartProgram), 53);
    EXPECT_EQ(Number(ERROR_FILE_NOT_FOUND, Attempt::StartProgram), 53);
    EXPECT_EQ(Number(ERROR_BAD_EXE_FORMAT, Attempt::StartProgram), 75);
}

TEST(Win32Error, TakesEverythingElseForTheDevicesFault) {
    EXPECT_EQ(Number(ERROR_CRC), 57);
    EXPECT_EQ(Number(ERROR_IO_DEVICE), 57);
    EXPECT_EQ(Number(54321), 57);
}

TEST(Win32Error, ThrowsTheLastError) {
    SetLastError(ERROR_DISK_FULL);
    EXPECT_EQ(ThrownNumber([] { ThrowLastError(L"C:\\a"); }), 61);
    SetLastError(ERROR_NOT_READY);
    EXPECT_EQ(ThrownNumber([] { ThrowLastError(L"C:\\a", Attempt::List); }), 68);
}

} // namespace
} // namespace tamblin

#endif

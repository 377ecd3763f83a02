// Window tests use the clipboard, menus and accessible names as the program does: on one thread
// with COM.
#include <gtest/gtest.h>
#include <objbase.h>

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}

// A failed operation, in the program's classic error numbering. Commands let it pass; the window
// kit catches it where it dispatches events and shows Report().
#pragma once

#include <exception>
#include <string>

namespace tamblin {

enum class ErrorNumber {
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    BadFileName = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIo = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccess = 75,
    PathNotFound = 76,
};

class RunTimeError : public std::exception {
  public:
    explicit RunTimeError(ErrorNumber errorNumber) : number(errorNumber) {}

    ErrorNumber Number() const { return number; }

    // A fatal error ends the process once it has been reported.
    bool IsFatal() const { return fatal; }
    RunTimeError AsFatal() const;

    std::wstring Text() const;   // "ファイルが見つかりません。"
    std::wstring Report() const; // number, an empty line, text
    const char* what() const noexcept override { return "run-time error"; }

  private:
    ErrorNumber number;
    bool fatal = false;
};

} // namespace tamblin

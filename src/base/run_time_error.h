// A failed operation, in the program's classic error numbering, with the file or folder that it
// failed on. Commands let it pass; the window kit catches it where it dispatches events and shows
// Report().
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
    // `advice` is what the user can do about it, where that does not follow from the number.
    explicit RunTimeError(ErrorNumber errorNumber, std::wstring fileOrFolder = {},
                          std::wstring advice = {})
        : number(errorNumber), path(std::move(fileOrFolder)), ownAdvice(std::move(advice)) {}

    ErrorNumber Number() const { return number; }
    const std::wstring& Path() const { return path; } // may be empty

    // A fatal error ends the process once it has been reported.
    bool IsFatal() const { return fatal; }
    RunTimeError AsFatal() const;

    std::wstring Text() const; // "ファイルが見つかりません。"
    // What helps, "" where nothing does. One line.
    std::wstring Advice() const;
    // Number, text, file or folder, and advice, with an empty line between one and the next.
    std::wstring Report() const;
    const char* what() const noexcept override { return "run-time error"; }

  private:
    ErrorNumber number;
    std::wstring path;
    std::wstring ownAdvice;
    bool fatal = false;
};

} // namespace tamblin

// The program is killed in the middle of a command, before each of the calls of Windows that change
// something on the disk, one after the other. Every file that was there is then the former one or
// the new one, whole, and the same command once more finishes the job.
//
// Each test starts itself as a process of its own for every call; an environment variable tells
// that process at which call it ends.
#ifdef _WIN32

#include <windows.h>

#include <filesystem>
#include <map>

#include "base/version.h"
#include "maintenance/launch.h"
#include "maintenance/updates.h"
#include "platform/win32/win32_desktop_shell.h"
#include "platform/win32/win32_file_system.h"
#include "support/temporary_folder.h"
#include "unit/counted_calls_win32.h"
#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

constexpr wchar_t callVariable[] = L"TAMBLIN_TEST_KILLED_AT_CALL";
constexpr wchar_t folderVariable[] = L"TAMBLIN_TEST_KILLED_IN";
constexpr UINT finished = 78;

// --- A computer with the program, a host and a package --------------------------------------

constexpr char formerSettings[] = "# mine\r\nVERSION=Ver.0.60\r\nVMRFOLDER=C:\\gone\r\n";
constexpr char formerStartUp[] = "H001currentobl=other.obl\r\nX=1\r\n";
constexpr char formerDefinitions[] = "#mine\r\na,b,1\r\n";
constexpr char mergedDefinitions[] = "#mine\r\na,b,2\r\nc,d,2\r\n";
const std::map<std::wstring, std::string> package = {{L"mio.obl", "mio 1"},
                                                     {L"mio\\face.bmp", "mio 2"},
                                                     {L"mio\\dat\\voice.wav", "mio 3"},
                                                     {L"mio\\KVA.DEF", "a,b,2\r\nc,d,2\r\n"},
                                                     {L"old.obl", "mio 4"}};

struct RealScene : SeamFakes {
    explicit RealScene(const std::wstring& topFolder) : top(topFolder) {}

    // As it is before the command. A former one goes.
    void Furnish() {
        files.SetCurrentFolder(top);
        for (const std::wstring& folder : {Host(), top.substr(0, 3) + L"TAMTMP"})
            std::filesystem::remove_all(folder);
        for (const wchar_t* folder :
             {L"\\Host", L"\\Host\\abc", L"\\Host\\mio", L"\\Packs", L"\\Tamblin"})
            if (!files.Find(top + folder))
                files.MakeFolder(top + folder);
        for (const auto& [path, bytes] : Former())
            files.Write(top + path, bytes);
        if (files.Find(top + L"\\Tamblin\\tamb.bak"))
            files.Delete(top + L"\\Tamblin\\tamb.bak");
    }

    static const std::map<std::wstring, std::string>& Former() {
        static const std::map<std::wstring, std::string> former = {
            {L"\\Host\\ombrel.exe", "the former program"},
            {L"\\Host\\ombrel.rc", formerStartUp},
            {L"\\Host\\kva.def", formerDefinitions},
            {L"\\Host\\kva.tmp", "from an earlier merge"},
            {L"\\Host\\abc.obl", "definition"},
            {L"\\Host\\abc\\face.bmp", "picture"},
            {L"\\Host\\old.obl", "to be replaced"},
            {L"\\Packs\\ombrel.exe", "a newer program"},
            {L"\\Packs\\p.lzh", "archive"},
            {L"\\Tamblin\\tamb.ini", formerSettings}};
        return former;
    }

    // The main window as it is when the user gives the command.
    void Open() {
        state = {};
        state.DefaultFolder = Host();
        state.ViewFolder = top + L"\\Packs";
        state.KvaOption = L"ON";
        Register(state, Host());
        unlha.onUnpack = [&](const std::wstring&) {
            Unpack();
            return std::int16_t{0};
        };
        main.Load();
        Select(main.Model().installed.names, {L"abc"});
    }

    // Which call unpacks what is not asked here.
    void Unpack() {
        const auto left = std::exchange(callsUntilKilled, 0);
        const std::wstring staging = top.substr(0, 3) + L"TAMTMP\\";
        files.MakeFolder(staging + L"mio");
        files.MakeFolder(staging + L"mio\\dat");
        for (const auto& [path, bytes] : package)
            files.Write(staging + path, bytes);
        callsUntilKilled = left;
    }

    std::wstring Host() const { return top + L"\\Host"; }
    bool Holds(const std::wstring& path, std::string_view bytes) {
        return files.Find(top + path) && files.Read(top + path) == bytes;
    }
    // False when something else stands there, or nothing.
    bool HoldsFormer(const std::wstring& path) { return Holds(path, Former().at(path)); }

    std::wstring top;
    Win32FileSystem files{{Patience::Milliseconds{0}, [](Patience::Milliseconds) {
                           }}};
    Win32DesktopShell shell;
    Platform platform = Over(files, shell, top + L"\\Tamblin");
    SettingsState state;
    SettingsFile settings{platform, state};
    MainScreen main{platform, state, settings};
    InstallScreenFake screen;
};

// --- The commands and what they may leave ---------------------------------------------------

struct KilledCommand {
    const char* name;
    void (*run)(RealScene& scene);
    void (*checkKilled)(RealScene& scene);
    void (*checkFinished)(RealScene& scene);
    unsigned atLeast; // so many calls change the disk
};

void PrintTo(const KilledCommand& command, std::ostream* out) {
    *out << command.name;
}

bool HoldsNewSettings(RealScene& scene) {
    const std::string bytes = scene.files.Read(scene.top + L"\\Tamblin\\tamb.ini");
    return bytes.starts_with("# mine\r\nVERSION=Ver." TAMBLIN_VERSION "\r\nVMRFOLDER=") &&
           bytes.ends_with("\r\n") && bytes.find("\r\nVIEWFOLDER=") == std::string::npos;
}

void ExpectRestKept(RealScene& scene, const std::vector<std::wstring>& changed) {
    for (const auto& [path, bytes] : RealScene::Former())
        if (std::find(changed.begin(), changed.end(), path) == changed.end()) {
            EXPECT_TRUE(scene.Holds(path, bytes)) << std::string(path.begin(), path.end());
        }
}

const KilledCommand commands[] = {
    {"Save", [](RealScene& scene) { scene.main.ExitPressed(); },
     [](RealScene& scene) {
         EXPECT_TRUE(scene.HoldsFormer(L"\\Tamblin\\tamb.ini") || HoldsNewSettings(scene));
         ExpectRestKept(scene, {L"\\Tamblin\\tamb.ini"});
     },
     [](RealScene& scene) {
         EXPECT_TRUE(HoldsNewSettings(scene));
         EXPECT_FALSE(scene.files.Find(scene.top + L"\\Tamblin\\tamb.bak"));
     },
     10},
    {"Launch",
     [](RealScene& scene) {
         if (!scene.files.Find(scene.Host() + L"\\ombrel_rc.bak"))
             LaunchCharacter(scene.main.Model(), scene.platform);
     },
     [](RealScene& scene) {
         EXPECT_TRUE(scene.HoldsFormer(L"\\Host\\ombrel.rc") ||
                     scene.Holds(L"\\Host\\ombrel_rc.bak", formerStartUp));
         ExpectRestKept(scene, {L"\\Host\\ombrel.rc"});
     },
     [](RealScene&) {}, 5},
    {"Update",
     [](RealScene& scene) {
         scene.main.Model().enabled[Command::UpdateHost] = true;
         UpdateHostProgram(scene.main.Model(), scene.platform);
     },
     [](RealScene& scene) {
         EXPECT_TRUE(scene.HoldsFormer(L"\\Host\\ombrel.exe") ||
                     scene.Holds(L"\\Host\\ombrel.exe", "a newer program"));
         ExpectRestKept(scene, {L"\\Host\\ombrel.exe"});
     },
     [](RealScene& scene) { EXPECT_TRUE(scene.Holds(L"\\Host\\ombrel.exe", "a newer program")); },
     6},
    {"InstallWithMerge",
     [](RealScene& scene) {
         Select(scene.main.Model().browser.Files(), {L"p.lzh"});
         Install(scene.main.Model(), scene.state, scene.platform, scene.screen);
     },
     [](RealScene& scene) {
         EXPECT_TRUE(scene.HoldsFormer(L"\\Host\\kva.def") ||
                     (scene.Holds(L"\\Host\\kva.def", mergedDefinitions) &&
                      scene.Holds(L"\\Host\\kva.tmp", formerDefinitions)));
         EXPECT_TRUE(scene.HoldsFormer(L"\\Host\\old.obl") ||
                     scene.Holds(L"\\Host\\old.obl", "mio 4"));
         for (const auto& [path, bytes] : package)
             if (path != L"old.obl" && scene.files.Find(scene.Host() + L"\\" + path)) {
                 EXPECT_TRUE(scene.Holds(L"\\Host\\" + path, bytes));
             }
         ExpectRestKept(scene, {L"\\Host\\kva.def", L"\\Host\\kva.tmp", L"\\Host\\old.obl"});
     },
     [](RealScene& scene) {
         for (const auto& [path, bytes] : package)
             EXPECT_TRUE(scene.Holds(L"\\Host\\" + path, bytes));
         EXPECT_TRUE(scene.Holds(L"\\Host\\kva.def", mergedDefinitions));
         EXPECT_FALSE(scene.files.Find(scene.top.substr(0, 3) + L"TAMTMP"));
     },
     40},
};

std::wstring Variable(const wchar_t* name) {
    wchar_t value[MAX_PATH]{};
    GetEnvironmentVariableW(name, value, MAX_PATH);
    return value;
}

class KilledProgram : public testing::TestWithParam<KilledCommand> {
  protected:
    // What a process of the test does instead.
    void SetUp() override {
        const std::wstring call = Variable(callVariable);
        if (call.empty())
            return;
        const WithoutFlushing quick;
        RealScene scene(Variable(folderVariable));
        scene.Open();
        CountCallsThatChangeTheDisk();
        callsUntilKilled = std::stoul(call);
        const auto failure = ErrorOf([&] { GetParam().run(scene); });
        callsUntilKilled = 0;
        TerminateProcess(GetCurrentProcess(), failure ? 1 : finished);
    }

    // How the process ended: a code of its own, or 0 if it did not begin, which fails the test.
    static DWORD RunKilledAt(unsigned call, const std::wstring& folder) {
        wchar_t program[MAX_PATH]{};
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        const std::string test =
            std::string("Commands/KilledProgram.LosesNothing/") + GetParam().name;
        std::wstring commandLine = L"\"" + std::wstring(program) + L"\" --gtest_filter=" +
                                   std::wstring(test.begin(), test.end());
        SetEnvironmentVariableW(callVariable, std::to_wstring(call).c_str());
        SetEnvironmentVariableW(folderVariable, folder.c_str());
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        const BOOL created = CreateProcessW(program, commandLine.data(), nullptr, nullptr, FALSE,
                                            DETACHED_PROCESS, nullptr, nullptr, &start, &process);
        EXPECT_TRUE(created) << "error " << GetLastError();
        SetEnvironmentVariableW(callVariable, nullptr);
        SetEnvironmentVariableW(folderVariable, nullptr);
        DWORD code = 0;
        if (created) {
            WaitForSingleObject(process.hProcess, INFINITE);
            GetExitCodeProcess(process.hProcess, &code);
            CloseHandle(process.hThread);
            CloseHandle(process.hProcess);
        }
        return code;
    }
};

TEST_P(KilledProgram, LosesNothing) {
    const TemporaryFolder folder;
    const WithoutFlushing quick;
    unsigned call = 1;
    for (;; ++call) {
        SCOPED_TRACE(testing::Message() << "call " << call);
        RealScene scene(folder.Path());
        scene.Furnish();
        const DWORD end = RunKilledAt(call, folder.Path());
        if (end == finished)
            break;
        ASSERT_EQ(end, KilledCode);
        GetParam().checkKilled(scene);
        RealScene again(folder.Path());
        again.Open();
        EXPECT_EQ(ErrorOf([&] { GetParam().run(again); }), std::nullopt);
        GetParam().checkFinished(again);
        again.files.SetCurrentFolder(folder.Path());
    }
    EXPECT_GT(call, GetParam().atLeast);
    RecordProperty("calls", static_cast<int>(call) - 1);
}

INSTANTIATE_TEST_SUITE_P(Commands, KilledProgram, testing::ValuesIn(commands), CaseName);

} // namespace
} // namespace tamblin

#endif

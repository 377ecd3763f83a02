#include "install/install.h"

#include "base/at_exit.h"
#include "base/character_files.h"
#include "base/name_index.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "install/copy_staged_tree.h"
#include "install/installed_list.h"
#include "install/package_staging.h"
#include "install/selection_rules.h"

namespace tamblin {
namespace {

constexpr wchar_t NothingText[] = L"（なし）";
constexpr wchar_t ExtractionFailedText[] = L"パッケージの解凍に失敗しました。";
constexpr wchar_t CancelledText[] = L"インストールを中止しました。";
constexpr wchar_t DoneText[] = L"インストールが完了しました。";

class InstallRun {
  public:
    InstallRun(MainModel& mainModel, SettingsState& settings, Platform& surroundings,
               InstallScreen& mainScreen)
        : model(mainModel),
          state(settings),
          platform(surroundings),
          screen(mainScreen),
          hostFolder(WithBackslash(mainModel.combo.Text())) {}

    void Run() {
        if (!OutsideStagingFolder({model.browser.ShownFolder(), hostFolder, platform.programFolder},
                                  hostFolder, platform))
            return;
        model.enabled[Command::Install] = false;
        // Also when what follows the disabling fails.
        const AtExit enable([this] { screen.SetMainWindowEnabled(true); });
        screen.SetMainWindowEnabled(false);
        // However an install ends, nothing of the program stays in the way of who deletes the
        // staging folder.
        const AtExit leave([this] { LeaveStagingFolder(platform); });
        if (!PrepareStagingFolder(hostFolder, platform) || !StageSelectedFiles())
            return;
        FillEmptyLists();
        ThinStagingFolder();

        std::int16_t InstallAnswer = 0;
        screen.ShowConfirmation(lists, InstallAnswer);
        if (!screen.MainWindowIsOpen())
            ClearStagingFolder(hostFolder, platform); // the session ends, and nobody has answered
        else if (InstallAnswer == AnswerCancel)
            Cancel();
        else
            Finish();
    }

  private:
    // False when an archive could not be unpacked, which ends the install.
    bool StageSelectedFiles() {
        const SelectionList& files = model.browser.Files();
        for (size_t index = 0; index < files.Size(); ++index) {
            if (!files.IsSelected(index))
                continue;
            if (!IsArchive(files[index]))
                lists.cannotInstall.Add(files[index]);
            else if (!StageArchive(files[index]))
                return false;
        }
        return true;
    }

    bool StageArchive(const std::wstring& archiveName) {
        PackageJudge judge(hostFolder, platform);
        if (ExtractPackage(model.browser.ShownFolder(), archiveName, hostFolder,
                           screen.MainWindowHandle(), platform) != 0) {
            platform.messages.Inform(ExtractionFailedText);
            ClearStagingFolder(hostFolder, platform);
            return false;
        }
        judge.JudgePackage(archiveName, model.installed.names, lists);
        return true;
    }

    void FillEmptyLists() {
        lists.installNowEnabled = !lists.toInstall.Empty();
        for (SelectionList* list :
             {&lists.alreadyInstalled, &lists.cannotInstall, &lists.toInstall})
            if (list->Empty())
                list->Add(NothingText);
    }

    // Leaves only characters that are not installed yet, and lone definition files.
    void ThinStagingFolder() {
        const std::wstring staging = WithBackslash(StagingFolder(hostFolder));
        const NameIndex installed(model.installed.names.Entries());
        WorkUnderWay work(platform.progress, TidyingText, WithoutBackslash(staging));
        const FolderListing staged = ListFolder(platform.files, staging);
        const size_t total = staged.files.size() + staged.folders.size();
        size_t done = 0;
        const auto advance = [&] {
            work.Advance(static_cast<double>(done++) / static_cast<double>(total));
        };
        for (const std::wstring& file : staged.files) {
            advance();
            const std::wstring name = CharacterOf(file);
            if (!IsDefinition(file)) {
                DeleteStagedFile(staging + file, platform.files);
            } else if (installed.Find(name) != nullptr) {
                platform.shell.DeleteTree(staging + name);
                platform.shell.DeleteTree(staging + file);
            }
        }
        const FolderListing left = ListFolder(platform.files, staging);
        const NameIndex definitions(left.files);
        for (const std::wstring& folder : left.folders) {
            advance();
            if (definitions.Find(DefinitionOf(folder)) == nullptr)
                platform.shell.DeleteTree(staging + folder);
        }
        DeleteWhatIsLeft(staging, installed);
    }

    // The shell does not tell what it could not delete. Nothing that the user has been told will
    // stay out may reach the host folder: what is still there goes now, or tells why it does not.
    void DeleteWhatIsLeft(const std::wstring& staging, const NameIndex& installed) {
        const FolderListing left = ListFolder(platform.files, staging);
        const NameIndex definitions(left.files);
        for (const std::wstring& file : left.files)
            if (!IsDefinition(file) || installed.Find(CharacterOf(file)) != nullptr)
                DeleteLeft([&] { DeleteStagedFile(staging + file, platform.files); });
        for (const std::wstring& folder : left.folders)
            if (definitions.Find(DefinitionOf(folder)) == nullptr)
                DeleteLeft([&] { platform.files.RemoveFolder(staging + folder); });
    }

    // What was only waiting to vanish has vanished by then.
    template <typename Deletion>
    static void DeleteLeft(const Deletion& deletion) {
        try {
            deletion();
        } catch (const RunTimeError& error) {
            if (error.Number() != ErrorNumber::FileNotFound &&
                error.Number() != ErrorNumber::PathNotFound)
                throw;
        }
    }

    void Cancel() {
        ClearStagingFolder(hostFolder, platform);
        platform.messages.Inform(CancelledText, MessageIcon::Information);
        ApplySelectionRules(model, state, platform);
    }

    void Finish() {
        CopyStagedTree(hostFolder, state, platform);
        platform.messages.Inform(DoneText, MessageIcon::Information);
        model.browser.Files().DeselectAll();
        RefreshInstalledList(model, state, platform);
        // Without a selected file the rules disable Command9, and Command1, which has to stay
        // enabled although nothing is selected any more.
        ApplySelectionRules(model, state, platform);
        model.enabled[Command::Install] = true;
    }

    MainModel& model;
    SettingsState& state;
    Platform& platform;
    InstallScreen& screen;
    std::wstring hostFolder;
    InstallConfirmation lists;
};

} // namespace

bool InstallConfirmation::NoteVisible() const {
    return !cannotInstall.Empty() && cannotInstall[0] != NothingText;
}

void Install(MainModel& model, SettingsState& state, Platform& platform, InstallScreen& screen) {
    InstallRun(model, state, platform, screen).Run();
}

} // namespace tamblin

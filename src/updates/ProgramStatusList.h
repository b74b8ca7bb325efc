#pragma once

#include "controls/ListViewModel.h"
#include "updates/ProgramVersion.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velmo
{

class CINIFileHandler;
class CVelmoProgramCommunicator;
class VersionList;

/// A button's caption, with its mnemonic, and whether it can be pressed.
struct ButtonState
{
    std::string caption;
    bool enabled = false;
};

/// The four buttons that act on the selected program.
struct ProgramButtons
{
    ButtonState updateOptions;
    ButtonState download;
    ButtonState updatePage;
    ButtonState informationPage;
};

/**
    The list of the vendor's programs: what is installed, what is latest, and what needs an update.
    Rows are keyed by display name; a row's tag is the setup address that the version list gives.
    User-interface thread.
 */
class ProgramStatusList
{
  public:
    /// Columns of the list view, numbered from 1.
    enum Column : std::size_t
    {
        Program = 1,
        CheckOnStartup,
        InstalledVersion,
        LatestVersion,
        NeedToUpdate,
    };

    /// All references must outlive the object.
    ProgramStatusList(CVelmoProgramCommunicator& locator, const CINIFileHandler& settings,
                      const VersionList& versionList);

    /// Rebuilds all rows. Keeps the selection and makes it visible.
    void Rebuild(bool versionListPresent);

    /// Reads a program's start-up option again and rewrites that cell.
    void RefreshStartupOption(std::string_view displayName);

    [[nodiscard]] ListViewModel& List() { return m_list; }
    [[nodiscard]] const ListViewModel& List() const { return m_list; }

    /// Number of programs that need an update.
    [[nodiscard]] std::int32_t CountThatNeedUpdate() const;

    /// The buttons for the selected row; without one, their plain captions, none enabled.
    [[nodiscard]] ProgramButtons Buttons() const;

    /// The version of a located program; zeros when it is not found.
    [[nodiscard]] ProgramVersion Installed(std::int32_t locatorNumber) const;

  private:
    [[nodiscard]] ListRow MakeRow(std::int32_t index, bool versionListPresent) const;
    [[nodiscard]] std::string StartupText(std::string_view displayName) const;

    CVelmoProgramCommunicator& m_locator;
    const CINIFileHandler& m_settings;
    const VersionList& m_versionList;
    ListViewModel m_list;
};

} // namespace velmo

#pragma once

#include "controls/ListViewModel.h"
#include "updates/ProgramRow.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmo
{

class CINIFileHandler;
class CVelmoProgramCommunicator;
class SettingsSnapshot;
class SharedValues;
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
    The list of the vendor's programs: what is installed, what is latest, and what needs an update. It
    owns the rows; the list view's model shows them, keyed by display name. User-interface thread.
 */
class ProgramStatusList final : private ListSource
{
  public:
    /// All references must outlive the object.
    ProgramStatusList(CVelmoProgramCommunicator& locator, const CINIFileHandler& settings);

    /// Rebuilds all rows, by @a latest and by what @a stores say is installed. Keeps the selection and
    /// makes it visible.
    void Rebuild(const VersionList& latest, const SharedValues& stores);

    /// Reads a program's start-up option again.
    void RefreshStartupOption(std::string_view displayName);

    /// In the catalogue's order.
    [[nodiscard]] std::span<const ProgramRow> Rows() const { return m_rows; }
    /// The row of that display name, or the one selected in the list view; nullptr for none. Valid
    /// until the next Rebuild().
    [[nodiscard]] const ProgramRow* Find(std::string_view displayName) const;
    [[nodiscard]] const ProgramRow* Selected() const;

    [[nodiscard]] ListViewModel& List() { return m_list; }
    [[nodiscard]] const ListViewModel& List() const { return m_list; }

    /// Number of programs that need an update.
    [[nodiscard]] std::int32_t CountThatNeedUpdate() const;

    /// The buttons for the selected row; without one, their plain captions, none enabled.
    [[nodiscard]] ProgramButtons Buttons() const;

  private:
    [[nodiscard]] std::size_t RowCount() const override { return m_rows.size(); }
    [[nodiscard]] std::string Key(std::size_t row) const override { return m_rows[row].Name(); }
    [[nodiscard]] std::string Text(std::size_t row, std::size_t column) const override;
    [[nodiscard]] bool Bold(std::size_t row) const override { return m_rows[row].NeedsUpdate(); }

    CVelmoProgramCommunicator& m_locator;
    const CINIFileHandler& m_settings;
    std::vector<ProgramRow> m_rows;
    ListViewModel m_list;
};

} // namespace velmo

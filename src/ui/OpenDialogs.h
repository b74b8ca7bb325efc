#pragma once

#include <wx/modalhook.h>

namespace velmo
{

/// Counts the dialogs and message boxes of the program that wait for an answer, from its construction
/// on. User-interface thread.
class OpenDialogs final : private wxModalDialogHook
{
  public:
    OpenDialogs() { Register(); }

    [[nodiscard]] int Open() const { return m_open; }

  private:
    int Enter(wxDialog* /*dialog*/) override
    {
        ++m_open;
        return wxID_NONE;
    }
    void Exit(wxDialog* /*dialog*/) override { --m_open; }

    int m_open = 0;
};

} // namespace velmo

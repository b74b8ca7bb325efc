#pragma once

#include "ui/CFormHandler.h"
#include "ui/Dialog.h"

#include <functional>
#include <string>
#include <string_view>

namespace velmo
{

class CINIFileHandler;

/// The question whether to see the list of updates. "Options" sets the caller's options and leaves
/// the question open; Escape is "No". Its place is remembered. ShowModal() gives wxID_YES or wxID_NO.
class frmUpdateMessage final : public Dialog
{
  public:
    /// @a settings must outlive the window. @a setOptions gets this window as parent.
    frmUpdateMessage(wxWindow* parent, CINIFileHandler& settings, const std::string& question,
                     std::string_view title, std::function<void(wxWindow* parent)> setOptions);
    ~frmUpdateMessage() override;

  private:
    CFormHandler m_place;
};

} // namespace velmo

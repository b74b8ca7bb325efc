#include "ui/ProgressPicture.h"

#include "ui/Accessible.h"

#include <wx/dcbuffer.h>

#include <algorithm>
#include <cmath>

namespace velmo
{
namespace
{

constexpr int kHeight = 24;
constexpr int kLeastWidth = 320;

const wxColour kBack(255, 255, 255);
const wxColour kFill(30, 90, 160);
const wxColour kFrame(130, 130, 130);

} // namespace

ProgressPicture::ProgressPicture(wxWindow* parent, const wxString& name, const wxString& forReaders)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxFULL_REPAINT_ON_RESIZE)
{
    SetName(name);
    NameForReaders(*this, AccessibleRole::ProgressBar, forReaders);
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetMinSize(FromDIP(wxSize(kLeastWidth, kHeight)));
    Bind(wxEVT_PAINT, &ProgressPicture::OnPaint, this);
}

void ProgressPicture::Set(double filled, const wxString& text)
{
    m_filled = std::clamp(filled, 0.0, 1.0);
    m_text = text;
    TellReaders(*this, text);
    Refresh();
}

void ProgressPicture::OnPaint(wxPaintEvent& /*event*/)
{
    wxAutoBufferedPaintDC dc(this);
    const wxRect all(GetClientSize());
    const int split = static_cast<int>(std::lround(m_filled * all.width));
    const wxSize text = dc.GetTextExtent(m_text);
    const wxPoint place((all.width - text.x) / 2, (all.height - text.y) / 2);

    // The text is drawn twice, each time where its colour stands out.
    struct Half
    {
        wxRect area;
        const wxColour& back;
        const wxColour& front;
    };
    const Half filled{wxRect(0, 0, split, all.height), kFill, kBack};
    const Half rest{wxRect(split, 0, all.width - split, all.height), kBack, *wxBLACK};
    for (const Half& half : {filled, rest})
    {
        if (half.area.width <= 0)
        {
            continue;
        }
        const wxDCClipper clipper(dc, half.area);
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(half.back);
        dc.DrawRectangle(half.area);
        dc.SetTextForeground(half.front);
        dc.DrawText(m_text, place);
    }
    dc.SetPen(kFrame);
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(all);
}

} // namespace velmo

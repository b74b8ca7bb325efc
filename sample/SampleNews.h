#pragma once

#include <array>
#include <string>
#include <string_view>

/// The sample vendor's news. Pure; any thread.
namespace velmo::sample
{

inline constexpr std::string_view kNewsFolder = "/web/newsroom/";
inline constexpr std::string_view kNewsPage = "/web/newsroom/index.htm";

/// Plain text, to be escaped for HTML.
struct NewsItem
{
    std::string_view name; ///< Of its page, without folder and ending.
    std::string_view date;
    std::string_view headline;
    std::array<std::string_view, 2> paragraphs;
};

/// Latest first.
inline constexpr std::array<NewsItem, 12> kNews{{
    {"loadcalc803",
     "November 9, 2026",
     "Loadcalc 8.03: shading that follows the sun",
     {"Loadcalc 8.03 moves the shadows of neighbouring buildings in steps of ten minutes. In our "
      "sample office block the cooling load of the west rooms fell by eleven percent.",
      "Projects of earlier versions open as they are; the new shading is used once the buildings "
      "around are drawn."}},
    {"equipment11",
     "November 2, 2026",
     "Two hundred equipment databases in one list",
     {"The equipment list now names two hundred databases of sixty makers. Each has its own "
      "release date, so that the update manager fetches only what is newer than yours.",
      "Most makers also supply pictures of their units, which print on the schedules."}},
    {"ductsize-noise",
     "October 19, 2026",
     "How quiet is quiet? A short course on duct noise",
     {"Our engineers explain in forty minutes where the noise in a duct system comes from and "
      "which "
      "of the usual remedies help.",
      "The course is free. Bring a project of your own: the last part is for questions."}},
    {"panelplan603",
     "October 5, 2026",
     "Panelplan 6.03 feeds a panel from two sources",
     {"A panel with a normal and a standby source is now one schedule. Breakers that belong to "
      "both "
      "are marked, and the feeders are sized for the worse case.",
      "Panelplan 5 got its last regular update at the same time."}},
    {"loopfield-bores",
     "September 21, 2026",
     "Large bore fields in a tenth of the time",
     {"Loopfield 3.04 calculates fields of more than two hundred bores in a tenth of the time that "
      "it took before. A field of four hundred bores over thirty years takes nine seconds.",
      "The results agree with the earlier ones to a hundredth of a degree."}},
    {"office-mirror",
     "September 7, 2026",
     "One server for the whole office",
     {"Administrators can point every desktop at a mirror of their own with one policy. The update "
      "manager then fetches lists and setups from there.",
      "The mirror is a plain copy of the two folders; any web server will do."}},
    {"refrigline-low",
     "August 24, 2026",
     "Refrigline knows two more refrigerants",
     {"Two refrigerants with low warming potential joined the tables of Refrigline 3.05, with "
      "their "
      "limits for charge and room size.",
      "Older projects keep their refrigerant; a report lists what would change."}},
    {"training-autumn",
     "August 10, 2026",
     "Autumn training dates are fixed",
     {"Three days on loads, ducts and plant, in small groups with one computer each. The first day "
      "suits people who have never used our programs.",
      "Places are given in the order of registration."}},
    {"outletplan401",
     "July 27, 2026",
     "Outletplan 4.01 counts conduit separately",
     {"The wire schedule of Outletplan 4.01 lists wire and conduit apart, by size and by storey.",
      "Circuits keep their number when a room is deleted, which many of you asked for."}},
    {"support-hours",
     "July 6, 2026",
     "Support answers until seven in the evening",
     {"From now on somebody who knows the programs answers the telephone until seven, Monday to "
      "Friday.",
      "Outside these hours, write to us: most letters are answered within a working day."}},
    {"psychrochart-drag",
     "June 15, 2026",
     "Drag a point along the chart",
     {"In Psychrochart 7 a point can be taken with the mouse and moved along a line of constant "
      "enthalpy, humidity or temperature. The table follows.",
      "The chart is copied to other programs as a vector picture and prints sharp at any size."}},
    {"noisecheck-rooms",
     "June 1, 2026",
     "Noisecheck sets a limit for each room",
     {"A bedroom is not a workshop: Noisecheck 2.05 compares every room with its own limit and "
      "marks "
      "those above it.",
      "The library of silencers was renewed as well."}},
}};

/// Path of the item's own page.
[[nodiscard]] std::string NewsPath(const NewsItem& item);

/// The page that lists all items.
[[nodiscard]] std::string NewsIndexPage();

/// One item's own page.
[[nodiscard]] std::string NewsItemPage(const NewsItem& item);

} // namespace velmo::sample

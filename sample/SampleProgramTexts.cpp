#include "sample/SampleProgramTexts.h"

#include "catalogue/ProgramTable.h"

#include <algorithm>
#include <cstddef>

namespace velmo::sample
{
namespace
{

/// In the order of the catalogue.
constexpr std::array<ProgramText, static_cast<std::size_t>(kProgramCount)> kTexts{{
    // Airflow 3
    {"Airflow follows the air through a building: from room to room, through shafts and out of "
     "every leak that the drawings admit to.",
     {"Pressure network of up to 2,000 zones, solved for wind, stack effect and fans together",
      "Leakage library for doors, windows, lift shafts and curtain walls",
      "Smoke control cases with open doors and a failed fan"},
     {"The wind table accepts 36 directions instead of 16",
      "A zone without any opening is reported by name instead of stopping the calculation",
      "Equipment lists open with the database last used"}},
    // Chillersize 4
    {"Chillersize selects chilled water plant from the equipment databases: number, size and "
     "staging of chillers for a given load profile.",
     {"Part-load energy for a year of hourly loads",
      "Selection from every installed equipment database", "Tower and condenser water sizing"},
     {"Selections of the previous version open without conversion",
      "The staging chart prints in landscape", "Corrected the glycol factor below -20 degrees"}},
    // Chillersize 5
    {"Chillersize selects chilled water plant from the equipment databases, now with heat "
     "recovery and variable primary flow.",
     {"Heat recovery chillers with their own load profile",
      "Variable primary flow with minimum flow bypass",
      "Side by side comparison of up to six plants"},
     {"Minimum flow is kept through a staging change", "The comparison shows cost for each month",
      "Manufacturer databases are listed with their release date"}},
    // Ductsize 6
    {"Ductsize sizes duct systems by equal friction, static regain or constant velocity and "
     "balances them.",
     {"Round, rectangular and flat oval ducts in one system",
      "More than 180 fittings with their loss coefficients", "Noise at each outlet by octave band"},
     {"Lined ducts keep their outside size when the lining changes",
      "Fitting list can be filtered by shape",
      "Static regain no longer oscillates on short branches"}},
    // Loadcalc 8
    {"Loadcalc calculates the heating and cooling loads of houses and commercial buildings, "
     "room by room and hour by hour.",
     {"Heat balance and radiant time series methods", "Weather data of 4,300 places",
      "Loads handed over to Ductsize and Chillersize with one command"},
     {"Rooms can be copied between projects with their constructions",
      "Shading by neighbouring buildings follows the sun in steps of ten minutes",
      "The peak load report names the hour and the month for each room"}},
    // Loopfield 3
    {"Loopfield designs the ground loops of geothermal systems, vertical or horizontal, for any "
     "number of years.",
     {"Bore field temperature for 30 years", "Horizontal loops, straight or coiled",
      "Pump head with antifreeze"},
     {"Fields of more than 200 bores take a tenth of the time",
      "Soil layers can be entered one by one", "The antifreeze table shows the freezing point"}},
    // Lumenplan 5
    {"Lumenplan lays out luminaires for an even light and checks it room by room.",
     {"Zonal cavity and point by point methods", "Photometric files of any maker",
      "Emergency lighting along escape routes"},
     {"Photometric files with 5 degree steps are read", "Task areas may overlap",
      "Printed plans keep their scale on every paper size"}},
    // Mainsplan 2
    {"Mainsplan plans the incoming supply of a building: service size, main switchboard and "
     "meters.",
     {"Diversity by kind of load", "Single line drawing", "Short circuit at each board"},
     {}},
    // Manifold 4
    {"Manifold lays out radiator and manifold piping and sets every balancing valve.",
     {"Presetting of valves", "Two-pipe and manifold systems", "Parts list by storey"},
     {"Valve presettings are rounded to the marks on the valve", "A manifold may have 24 outlets",
      "The parts list can be sorted by article"}},
    // Meterbank 1
    {"Meterbank composes meter rooms for apartment houses.",
     {"Meter stacks from a library of frames", "Clearances checked", "Labels for every meter"},
     {}},
    // Motorstart 3
    {"Motorstart shows what happens to the lights when the big motor starts.",
     {"Voltage dip along the feeder", "Direct, star-delta and soft starters",
      "Start-up time with the driven load"},
     {"Soft starter ramps can be drawn by hand", "Pump and fan load curves added",
      "The dip is shown for each board"}},
    // Noisecheck 2
    {"Noisecheck follows the sound of fans and terminals into the rooms and compares it with "
     "the limit.",
     {"Regenerated noise of fittings", "Room effect by absorption", "Silencers from a library"},
     {"Break-out noise of flat oval ducts", "Limits can be set for each room",
      "Octave band tables can be copied to the clipboard"}},
    // Oilfire 1
    {"Oilfire sizes oil-fired heating plant: burner, tank, lines and flue.",
     {"Nozzle selection", "One and two pipe lines", "Flue draught summer and winter"},
     {"Nozzle tables in both unit systems", "The tank may stand above the burner",
      "Flue heights to 60 m"}},
    // Outletplan 4
    {"Outletplan puts outlets and circuits on a plan and counts the wire.",
     {"Circuits drawn by rules", "Arc fault and ground fault protection by room", "Wire schedule"},
     {"Circuits keep their number when a room is deleted",
      "The wire schedule lists conduit separately", "Symbols of two drawing standards"}},
    // Panelplan 6
    {"Panelplan makes panel schedules: loads by phase, breakers, feeders and the drawing of the "
     "panel.",
     {"Phases balanced with one command", "Breaker coordination chart",
      "Feeder sizing with ambient correction"},
     {"A panel may be fed from two sources", "Breaker databases can be searched by frame size",
      "Schedules export to a spreadsheet"}},
    // Panelplan 5
    {"Panelplan 5 is the previous generation of Panelplan. It is still maintained for offices "
     "that finish projects with it.",
     {"Panel schedules by phase", "Feeder sizing", "Drawing of the panel"},
     {"Opens in windows of more than 2,000 pixels", "Feeder lengths above 999 are printed in full",
      "Last regular update of this generation"}},
    // Parkvent 2
    {"Parkvent designs the ventilation of closed car parks.",
     {"Carbon monoxide by traffic", "Jet fans or ducts", "Fire case"},
     {}},
    // Phasebalance 1
    {"Phasebalance spreads single phase loads over three phases.",
     {"Any number of boards", "Neutral current", "Before and after report"},
     {}},
    // Pipebend 2
    {"Pipebend calculates offsets and bends for pipe and conduit on site.",
     {"Offsets, saddles and kicks", "Bender tables", "Cut lengths"},
     {}},
    // Pipehanger 1
    {"Pipehanger places hangers and anchors along a pipe run.",
     {"Spacing by pipe and fluid", "Expansion between anchors", "Hanger list"},
     {"Plastic pipe at two temperatures", "Anchors show their force", "Hanger list by storey"}},
    // Pipesize 3
    {"Pipesize sizes water, gas and steam pipes and adds up what they need.",
     {"Water, gas, steam and compressed air", "Fixture units of three codes", "Pump head"},
     {}},
    // Psychrochart 7
    {"Psychrochart draws the states of moist air and the processes between them on a chart.",
     {"Chart for any altitude", "Heating, cooling, mixing, humidifying",
      "Points linked to a table"},
     {"Points can be dragged along a line of constant enthalpy",
      "The chart copies as a vector picture", "Altitude is stored with the project"}},
    // Pipesleeve 1
    {"Pipesleeve lists and places the sleeves where pipes pass walls and slabs.",
     {"Fire rating of each opening", "Sleeve schedule", "Core drill plan"},
     {"Sleeves can be grouped", "The core drill plan has a grid", "Ratings to four hours"}},
    // Radiantfloor 2
    {"Radiantfloor designs warm floors: spacing, loop lengths, water temperature and manifold.",
     {"Floor coverings with their resistance", "Loop lengths kept equal",
      "Surface temperature checked"},
     {"Edge zones with their own spacing", "Loops may share a return",
      "Wet and dry constructions"}},
    // Refrigline 3
    {"Refrigline sizes refrigerant lines, risers and traps for split and rack systems.",
     {"Twelve refrigerants", "Double risers", "Oil return at part load"},
     {"Two refrigerants with low warming potential added", "Double risers report both velocities",
      "Trap spacing can be set"}},
    // Rooftop 4
    {"Rooftop selects packaged rooftop units from the equipment databases by load, airflow and "
     "site.",
     {"Sensible and latent capacity at site conditions", "Economizer hours",
      "Curb and weight list"},
     {"Units with variable speed fans are rated at four points", "Economizer hours by month",
      "Equipment databases of the new format"}},
    // Wiring 2
    {"Wiring sizes conductors and conduit and checks the voltage drop to the last outlet.",
     {"Ampacity with correction factors", "Conduit fill", "Voltage drop by branch"},
     {"Aluminium conductors to 1,000 kcmil", "Conduit fill with mixed sizes",
      "Voltage drop shown on the plan"}},
    // Splitpair 2
    {"Splitpair matches indoor and outdoor units of split systems from the equipment databases.",
     {"Rated pairs first", "Line length correction", "Heating at low outside temperature"},
     {"Pairs of three indoor units", "Low temperature heating down to -30 degrees",
      "The database's release date is printed"}},
    // Sprinkler 3
    {"Sprinkler calculates sprinkler systems from the remote area back to the pump.",
     {"Tree, loop and grid systems", "Remote area found by itself", "Pump curve and tank"},
     {}},
    // Stackvent 1
    {"Stackvent sizes soil stacks and their vents.",
     {"Single stack and vented systems", "Offsets", "Air admittance valves"},
     {"Stacks to 60 storeys", "Offsets above the lowest branch", "The drawing shows vent sizes"}},
    // Tanksize 2
    {"Tanksize sizes hot water storage and expansion vessels.",
     {"Draw-off profiles of nine kinds of building", "Recovery by boiler or heat pump",
      "Expansion vessels"},
     {"Heat pump recovery by outside temperature", "Own draw-off profiles", "Vessels in parallel"}},
    // Update Manager 1
    {"The update manager keeps the programs and equipment databases on this computer up to "
     "date.",
     {"Shows which programs need an update", "Installs equipment databases and pictures",
      "Tells the latest news"},
     {}},
    // Voltdrop 2
    {"Voltdrop answers one question quickly: how much voltage is left at the end of this cable?",
     {"Single and three phase", "Copper and aluminium", "Longest allowed length"},
     {}},
    // Wastepipe 3
    {"Wastepipe designs drains inside and below a building with their slopes and inverts.",
     {"Fixture units to flow", "Slopes and inverts", "Inspection openings"},
     {"Inverts follow a changed slab level", "Pumped sections",
      "Long sections print on several sheets"}},
}};

constexpr bool UpdatePagesHaveChanges()
{
    return std::all_of(kPrograms.begin(), kPrograms.end(), [](const ProgramEntry& row) {
        const ProgramText& text = kTexts[static_cast<std::size_t>(row.index)];
        return row.updatePage.empty() == text.changes.front().empty();
    });
}
static_assert(UpdatePagesHaveChanges());

} // namespace

const ProgramText& TextOfProgram(std::int32_t index)
{
    return kTexts.at(static_cast<std::size_t>(index));
}

} // namespace velmo::sample

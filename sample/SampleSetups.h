#pragma once

#include "sample/SampleEquipment.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmo::sample
{

/// What the picture folder of a section holds once they are installed: checker picture and
/// "PicInfo.ini", by file name.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> PictureFiles(
    const EquipmentSection& section, std::chrono::year_month_day modified);

/**
    The sample vendor's setups of equipment databases and pictures: programs that really install. They
    are large, so each is made when it is asked for. Reading: any thread.
 */
class SampleSetups
{
  public:
    /// @a program: what each setup starts with (velmo-equipment-setup of the build that shall run
    /// them). Empty: there are no setups.
    explicit SampleSetups(std::string program);
    SampleSetups(const SampleSetups&) = delete;
    SampleSetups& operator=(const SampleSetups&) = delete;

    /// The sections that the setups serve, with the setups' real sizes.
    [[nodiscard]] const std::vector<EquipmentSection>& Sections() const { return m_sections; }

    /// The setup of a path on the server.
    [[nodiscard]] std::optional<std::string> Make(std::string_view path) const;

  private:
    using Maker = std::function<std::string(std::size_t size)>;

    void Add(std::string_view folder, const std::string& name, std::uint64_t& size,
             const Maker& make);

    std::string m_program;
    std::vector<EquipmentSection> m_sections;
    std::map<std::string, std::function<std::string()>, std::less<>> m_makers; ///< By path.
};

} // namespace velmo::sample

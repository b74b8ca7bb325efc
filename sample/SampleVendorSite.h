#pragma once

#include "sample/SampleEquipment.h"

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

namespace velmo::sample
{

struct SiteFile
{
    std::string contentType;
    std::string bytes;
};

/**
    All that the sample vendor's web server offers: the two lists, the pages of the programs and the
    news, the demo setups. Made up, and always the same for the same server. Reading: any thread.
 */
class SampleVendorSite
{
  public:
    /// @a server: scheme, host and port of the server that offers it, for the addresses in the lists.
    /// @a equipment: what the manufacturer list names; its setups are SampleSetups'.
    explicit SampleVendorSite(std::string server,
                              std::span<const EquipmentSection> equipment = SampleEquipment());

    /// The file of a path; nullptr when there is none.
    [[nodiscard]] const SiteFile* Find(std::string_view path) const;

    /// All files by their paths.
    [[nodiscard]] const std::map<std::string, SiteFile, std::less<>>& Files() const
    {
        return m_files;
    }

  private:
    void AddPage(std::string_view path, std::string html);
    void AddLists(std::span<const EquipmentSection> equipment);
    void AddProgramPages();
    void AddDemoSetups();
    void AddNews();

    std::string m_server;
    std::map<std::string, SiteFile, std::less<>> m_files;
};

} // namespace velmo::sample

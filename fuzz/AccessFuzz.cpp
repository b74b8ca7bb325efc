// Damaged databases: nothing that lies in a file may crash or hang the reader. A whole database is
// too large an input to get far with, so an input is a list of damages to one of the sound test
// files: its number, then where (3 bytes) and what (3 bytes) to write. The first damage may also
// say where the file is cut.
#include "access/AccessFile.h"
#include "platform/MFile.h"
#include "text/ByteView.h"

#include <array>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{

struct SoundFile
{
    const char* name;
    const char* table;
    std::array<const char*, 3> fields;
};

constexpr std::array kSoundFiles = {
    SoundFile{"equipment/plain_datetime_v2000.mdb", "Header", {"ReleaseDate", "Notes", "ID"}},
    SoundFile{"equipment/overflow_first_row.mdb", "Header", {"ReleaseDate", "More", "ID"}},
    SoundFile{"equipment/wide_90_columns.mdb", "Header", {"ReleaseDate", "LastColumn", "ID"}},
    SoundFile{"equipment/long_memo_before.mdb", "Header", {"Notes", "Legal", "Short"}},
    SoundFile{"equipment/text_mixed_unicode.mdb", "Furnaces", {"ListPrice", "Afue", "Introduced"}},
    SoundFile{"microsoft/types_and_dates_1997.mdb", "Table1", {"A", "G", "I"}},
    SoundFile{
        "microsoft/fixed_text_and_time_2007.accdb", "users", {"c_flag_", "d_stamp_", "i_user_id"}},
};

std::string Load(const SoundFile& file)
{
    auto bytes =
        velmo::platform::MFile::ReadAll(VELMO_TEST_DATA "/access/" + std::string(file.name));
    if (!bytes)
    {
        std::abort();
    }
    return std::move(bytes).Value();
}

std::vector<std::string> LoadAll()
{
    std::vector<std::string> files;
    for (const SoundFile& file : kSoundFiles)
    {
        files.push_back(Load(file));
    }
    return files;
}

void ReadFields(std::string_view bytes, const SoundFile& sound)
{
    auto file = velmo::AccessFile::OpenBytes(std::as_bytes(std::span(bytes)));
    if (!file)
    {
        return;
    }
    velmo::AccessFile opened = std::move(file).Value();
    for (const char* field : sound.fields)
    {
        (void)opened.FirstRecordField(sound.table, field);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static std::vector<std::string> files = LoadAll();
    constexpr std::size_t kDamageSize = 6;
    const velmo::ByteView input(std::as_bytes(std::span(data, size)));
    if (!input.Has(1, kDamageSize))
    {
        return 0;
    }
    const std::size_t number = input.U8(0) % files.size();
    const bool isCut = (input.U8(0) & 0x80) != 0;
    std::string& bytes = files[number];
    // Damage is undone at the end: copying a whole file for each input would take most of the time.
    std::vector<std::pair<std::size_t, std::string>> before;
    for (std::size_t at = 1; input.Has(at, kDamageSize); at += kDamageSize)
    {
        const std::size_t place = (input.U32(at) & 0xFFFFFF) % (bytes.size() - 2);
        before.emplace_back(place, bytes.substr(place, 3));
        bytes.replace(place, 3, input.Part(at + 3, 3)->Chars());
    }
    const std::size_t cut = (input.U32(1) & 0xFFFFFF) % bytes.size();
    ReadFields(std::string_view(bytes).substr(0, isCut ? cut : bytes.size()), kSoundFiles[number]);
    for (auto damage = before.rbegin(); damage != before.rend(); ++damage)
    {
        bytes.replace(damage->first, damage->second.size(), damage->second);
    }
    return 0;
}

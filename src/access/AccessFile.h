#pragma once

#include "access/AccessFormat.h"
#include "access/AccessPages.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velmo
{

/// What a file says about one field of a table's first record.
struct AccessField
{
    enum class State
    {
        Value,
        Null,
        NoRows,
        NoTable,
        NoField
    };

    State state = State::Null;
    std::string text; ///< Only for Value; may be empty.
};

/**
    Reads single fields from an Access database file (97 to 2019, .mdb and .accdb) without a
    database engine. The file is opened for reading only and stays open to every other program; of
    it only what is needed is read, and only once.

    Nothing in the file is trusted: a damaged one, however made, ends in an Error, never in a crash,
    an endless loop or more than 16 MiB of pages in memory. One thread at a time.
 */
class AccessFile
{
  public:
    /// Opens the file and checks its header. Errors: the system's when it cannot be opened (2 or 3:
    /// there is none); kBadFormat, kWrongPassword, kFileEncoded, kFileDamaged.
    [[nodiscard]] static Result<AccessFile> Open(std::string_view path);

    /// The same for a file in memory. The bytes outlive the object.
    [[nodiscard]] static Result<AccessFile> OpenBytes(std::span<const std::byte> bytes);

    /**
        One field of a table's first record: the first in stored order that is not deleted. Names
        are ASCII, in any case. Queries and linked tables are not tables. Text is as AccessValue.h
        says. Errors: kFileDamaged, kInvalidData.
     */
    [[nodiscard]] Result<AccessField> FirstRecordField(std::string_view table,
                                                       std::string_view field);

    /// What reading took so far: blocks of 4 KiB.
    [[nodiscard]] std::size_t BlocksRead() const { return m_pages.BlocksRead(); }

  private:
    explicit AccessFile(AccessPages pages) : m_pages(std::move(pages)) {}

    [[nodiscard]] static Result<AccessFile> OpenSource(AccessSource source);
    [[nodiscard]] AccessField ReadField(std::string_view tableName, std::string_view field);

    AccessPages m_pages;
};

/// FirstRecordField() of the file at @a path; nothing for null. Errors: those of Open() and
/// FirstRecordField(), and 1168 ("element not found") without such a table, field or record.
[[nodiscard]] Result<std::optional<std::string>> ReadAccessField(std::string_view path,
                                                                 std::string_view table,
                                                                 std::string_view field);

} // namespace velmo

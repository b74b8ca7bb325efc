#pragma once

#include "equipment/AccessFormat.h"
#include "equipment/ByteView.h"
#include "platform/FileReader.h"

#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <variant>

namespace velmo
{

/// Where an Access file's bytes come from: a file, or memory that outlives the reader.
using AccessSource = std::variant<platform::FileReader, std::span<const std::byte>>;

/// A row as its page stores it.
struct AccessStoredRow
{
    ByteView bytes;
    bool isPointer = false; ///< The bytes are where the row lives now.
    bool isTarget = false;  ///< The row belongs to a pointer elsewhere.

    [[nodiscard]] bool IsDeleted() const { return isPointer && isTarget; }
};

/**
    The pages of an Access file. Each is read once and kept while the object lives, so that views of
    it stay good. A file that asks for more than kMostPages, or for pages more often than
    kMostRequests, is taken for damaged; a sound one takes about ten.
 */
class AccessPages
{
  public:
    static constexpr std::size_t kMostPages = 4096; ///< 16 MiB, or 8 in an Access 97 file.
    static constexpr std::size_t kMostRequests = 50'000;

    /// Reads the header. Errors as in AccessHeader.h.
    [[nodiscard]] static Result<AccessPages> Open(AccessSource source);

    [[nodiscard]] const JetFormat& Format() const { return *m_format; }

    /// How many pages have been read, not counting the header.
    [[nodiscard]] std::size_t PagesRead() const { return m_pages.size(); }

    /// How often a page has been asked for, whether it had to be read or not.
    [[nodiscard]] std::size_t Requests() const { return m_requests; }

    /// A page of that type; any other is an error.
    [[nodiscard]] Result<ByteView> Page(std::uint32_t number, AccessPageType type);

    /// A data page that belongs to @a owner: its table's definition page, or kLongValues.
    [[nodiscard]] Result<ByteView> DataPage(std::uint32_t number, std::uint32_t owner);

    /// The owner of pages with long texts: the letters "LVAL".
    static constexpr std::uint32_t kLongValues = 0x4C41564C;

    [[nodiscard]] std::size_t RowCount(ByteView dataPage) const;

    /// A row of a data page; nothing when the page has no such row or it does not fit.
    [[nodiscard]] std::optional<AccessStoredRow> Row(ByteView dataPage, std::size_t number) const;

  private:
    AccessPages(AccessSource source, const JetFormat& format);

    AccessSource m_source;
    const JetFormat* m_format;
    std::uint64_t m_pageCount;
    std::size_t m_requests = 0;
    std::unordered_map<std::uint32_t, std::unique_ptr<std::byte[]>> m_pages;
};

} // namespace velmo

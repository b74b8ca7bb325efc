#pragma once

#include "access/AccessFormat.h"
#include "platform/FileReader.h"
#include "text/ByteView.h"

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
    The pages of an Access file, read in blocks of 4 KiB: a page, or two of Access 97's. (Larger
    blocks cost more in copying than they save in calls.) Each block is read once and kept while the
    object lives, so that views of it stay good. A file that asks for more than kMostBlocks, or for
    pages more often than kMostRequests, is taken for damaged; a sound one takes about ten.
 */
class AccessPages
{
  public:
    static constexpr std::size_t kBlockSize = 4'096;
    static constexpr std::size_t kMostBlocks = 4'096;
    static constexpr std::size_t kMostRequests = 50'000;

    /// Reads the first block and checks the header in it. Faults as in AccessHeader.h.
    explicit AccessPages(AccessSource source);

    [[nodiscard]] const JetFormat& Format() const { return *m_format; }

    /// Of the whole file, in bytes.
    [[nodiscard]] std::uint64_t FileSize() const;

    [[nodiscard]] std::size_t BlocksRead() const { return m_blocks.size(); }

    /// A page of that type; any other is a fault.
    [[nodiscard]] ByteView Page(std::uint32_t number, AccessPageType type);

    /// A data page that belongs to @a owner: its table's definition page, or kLongValues.
    [[nodiscard]] ByteView DataPage(std::uint32_t number, std::uint32_t owner);

    /// The owner of pages with long texts: the letters "LVAL".
    static constexpr std::uint32_t kLongValues = 0x4C41564C;

    [[nodiscard]] std::size_t RowCount(ByteView dataPage) const;

    /// A row of a data page. A fault, "... @a what", when the page has no such row or it does not fit.
    [[nodiscard]] AccessStoredRow Row(ByteView dataPage, std::size_t number,
                                      std::string_view what) const;

  private:
    using Block = std::unique_ptr<std::byte[]>;

    AccessSource m_source;
    const JetFormat* m_format = nullptr;
    std::size_t m_requests = 0;
    std::unordered_map<std::uint64_t, Block> m_blocks; ///< By their place in the file.
};

} // namespace velmo

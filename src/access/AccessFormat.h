#pragma once

#include "platform/ErrorCode.h"
#include "platform/Result.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace velmo
{

/// Where things lie in an Access file; all offsets and sizes in bytes. Jet 3 is Access 97;
/// everything since Access 2000, ACE included, shares the other layout.
struct JetFormat
{
    std::size_t pageSize;
    std::size_t passwordSize;
    bool passwordIsMaskedWithDate;
    bool textIsUnicode;

    std::size_t pageRowCount; ///< In a data page; the rows' offsets follow.

    // In a table definition.
    std::size_t variableColumnCount;
    std::size_t columnCount;
    std::size_t realIndexCount;
    std::size_t usageMapPointer;
    std::size_t indexCounters; ///< One block per real index; then the columns.
    std::size_t indexCounterSize;
    std::size_t columnSize;
    std::size_t nameLengthSize;

    // In a column of a table definition.
    std::size_t columnNumber;
    std::size_t columnVariableIndex;
    std::size_t columnFlags;
    std::size_t columnFixedOffset;
    std::size_t columnLength;

    std::size_t rowNumberSize; ///< Width of the counts and offsets inside a row.
};

inline constexpr JetFormat kJet3 = {.pageSize = 2048,
                                    .passwordSize = 20,
                                    .passwordIsMaskedWithDate = false,
                                    .textIsUnicode = false,
                                    .pageRowCount = 8,
                                    .variableColumnCount = 23,
                                    .columnCount = 25,
                                    .realIndexCount = 31,
                                    .usageMapPointer = 35,
                                    .indexCounters = 43,
                                    .indexCounterSize = 8,
                                    .columnSize = 18,
                                    .nameLengthSize = 1,
                                    .columnNumber = 1,
                                    .columnVariableIndex = 3,
                                    .columnFlags = 13,
                                    .columnFixedOffset = 14,
                                    .columnLength = 16,
                                    .rowNumberSize = 1};

inline constexpr JetFormat kJet4 = {.pageSize = 4096,
                                    .passwordSize = 40,
                                    .passwordIsMaskedWithDate = true,
                                    .textIsUnicode = true,
                                    .pageRowCount = 12,
                                    .variableColumnCount = 43,
                                    .columnCount = 45,
                                    .realIndexCount = 51,
                                    .usageMapPointer = 55,
                                    .indexCounters = 63,
                                    .indexCounterSize = 12,
                                    .columnSize = 25,
                                    .nameLengthSize = 2,
                                    .columnNumber = 5,
                                    .columnVariableIndex = 7,
                                    .columnFlags = 15,
                                    .columnFixedOffset = 21,
                                    .columnLength = 23,
                                    .rowNumberSize = 2};

/// The first byte of a page.
enum class AccessPageType : std::uint8_t
{
    Data = 1,
    TableDefinition = 2,
    UsageBitmap = 5
};

enum class AccessType : std::uint8_t
{
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    DateTime = 8,
    Text = 10,
    Memo = 12
};

/// Bytes of a type's values where they are always the same; 0 for the others.
[[nodiscard]] constexpr std::size_t SizeOf(AccessType type)
{
    switch (type)
    {
    case AccessType::Byte:
        return 1;
    case AccessType::Integer:
        return 2;
    case AccessType::Long:
    case AccessType::Single:
        return 4;
    case AccessType::Currency:
    case AccessType::Double:
    case AccessType::DateTime:
        return 8;
    default:
        return 0;
    }
}

/// Place of a row: its page and its number there. Stored as the number in the low byte.
struct AccessRowPointer
{
    std::uint32_t page = 0;
    std::uint32_t row = 0;

    explicit AccessRowPointer(std::uint32_t stored) : page(stored >> 8), row(stored & 0xFF) {}
};

/// Thrown inside this room when a file cannot be read on, from wherever that is seen; the operations of
/// AccessFile catch it and give the error back.
struct AccessFault
{
    Error error;
};

[[noreturn]] inline void ThrowAccessFault(std::int32_t code, std::string description)
{
    throw AccessFault{{code, std::move(description)}};
}

[[noreturn]] inline void ThrowDamaged(std::string_view what)
{
    ThrowAccessFault(error_code::kFileDamaged,
                     "The database is damaged: " + std::string(what) + ".");
}

} // namespace velmo

#pragma once

#include "equipment/AccessRow.h"

#include <optional>
#include <string>

namespace velmo
{

/// What to do to read a field as text: its row, its column, and the pages for texts too long for
/// rows.
struct AccessCell
{
    AccessPages& pages;
    const AccessRow& row;
    const AccessColumn& column;
};

/**
    A field's value as text; nothing for null.

    Dates are "m/d/yyyy", followed by " h:mm:ss AM" or "PM" when they are not at midnight. Numbers
    have a decimal point and no needless zeros: 7 digits in a Single, 15 in a Double, 4 decimals in
    a Currency. Booleans are "True" and "False", and never null. Text is as it is.

    Errors: NoText for pictures, binary data and other types without a text; Damaged.
 */
[[nodiscard]] Result<std::optional<std::string>> AccessValue(const AccessCell& cell);

} // namespace velmo

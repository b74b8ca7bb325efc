#pragma once

#include "access/AccessRows.h"

#include <optional>
#include <string>

namespace velmo
{

/**
    A field's value as text; nothing for null.

    Dates are "m/d/yyyy", followed by " h:mm:ss AM" or "PM" when they are not at midnight. Numbers
    have a decimal point and no needless zeros: 7 digits in a Single, 15 in a Double, 4 decimals in
    a Currency. Booleans are "True" and "False", and never null. Text is as it is.

    Faults: kInvalidData for pictures, binary data and other types without a text; kFileDamaged.
 */
[[nodiscard]] std::optional<std::string> AccessValue(AccessPages& pages, const AccessRow& row,
                                                     const AccessColumn& column);

} // namespace velmo

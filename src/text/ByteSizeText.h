#pragma once

#include <string>

namespace velmo
{

/// A count of bytes as people read it: "999 Bytes", "1 KB", "1.4 MB", "2.00 GB". The thresholds are
/// decimal, the divisors binary: 1000 bytes read "1 KB". What is no count reads "0 Bytes".
[[nodiscard]] std::string ByteSizeText(double bytes);

/// The whole count, "1234567". What is no number reads "0", and none reads larger than 1e15.
[[nodiscard]] std::string ByteCountText(double bytes);

} // namespace velmo

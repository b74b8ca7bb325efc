#pragma once

#include "trust/ListKey.h"

#include <string>
#include <string_view>

namespace velmo::test
{

/// Signs lists as minisign does, with a key that is the same for the same seed.
class ListSigner
{
  public:
    explicit ListSigner(unsigned char seed);

    [[nodiscard]] const ListKey& Key() const { return m_key; }

    /// The key in minisign's base64.
    [[nodiscard]] std::string KeyText() const;

    /// The file of signed lists: the signature, then the text. "Ed" as the @a algorithm is the older form,
    /// which signs the text itself.
    [[nodiscard]] std::string Sign(std::string_view text, std::string_view comment = "Velmo lists",
                                   std::string_view algorithm = "ED") const;

  private:
    [[nodiscard]] std::string SignatureOf(std::string_view bytes) const;

    ListKey m_key;
    std::string m_secret;
};

} // namespace velmo::test

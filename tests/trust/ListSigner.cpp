#include "tests/trust/ListSigner.h"

#include <sodium.h>

namespace velmo::test
{
namespace
{

unsigned char* Raw(std::string& bytes)
{
    return reinterpret_cast<unsigned char*>(bytes.data());
}

const unsigned char* ReadOnly(std::string_view text)
{
    return reinterpret_cast<const unsigned char*>(text.data());
}

template <typename Bytes>
std::string Chars(const Bytes& bytes)
{
    return {bytes.begin(), bytes.end()};
}

std::string Base64(std::string_view bytes)
{
    constexpr int kVariant = sodium_base64_VARIANT_ORIGINAL;
    std::string text(sodium_base64_encoded_len(bytes.size(), kVariant), '\0');
    sodium_bin2base64(text.data(), text.size(), ReadOnly(bytes), bytes.size(), kVariant);
    text.pop_back(); // its NUL
    return text;
}

} // namespace

ListSigner::ListSigner(unsigned char seed) : m_secret(crypto_sign_SECRETKEYBYTES, '\0')
{
    const std::string seedBytes(crypto_sign_SEEDBYTES, static_cast<char>(seed));
    crypto_sign_seed_keypair(m_key.key.data(), Raw(m_secret), ReadOnly(seedBytes));
    m_key.number.fill(seed);
}

std::string ListSigner::KeyText() const
{
    return Base64("Ed" + Chars(m_key.number) + Chars(m_key.key));
}

std::string ListSigner::Sign(std::string_view text, std::string_view comment,
                             std::string_view algorithm) const
{
    std::string hash(crypto_generichash_BYTES_MAX, '\0');
    crypto_generichash(Raw(hash), hash.size(), ReadOnly(text), text.size(), nullptr, 0);
    const std::string signature = SignatureOf(algorithm == "ED" ? hash : text);
    return "untrusted comment: made by a test\n" +
           Base64(std::string(algorithm) + Chars(m_key.number) + signature) +
           "\ntrusted comment: " + std::string(comment) + "\n" +
           Base64(SignatureOf(signature + std::string(comment))) + "\n" + std::string(text);
}

std::string ListSigner::SignatureOf(std::string_view bytes) const
{
    std::string signature(crypto_sign_BYTES, '\0');
    crypto_sign_detached(Raw(signature), nullptr, ReadOnly(bytes), bytes.size(),
                         ReadOnly(m_secret));
    return signature;
}

} // namespace velmo::test

#include "trust/ListSignature.h"

#include "platform/ErrorCode.h"
#include "text/TextLine.h"
#include "trust/Base64.h"

#include <algorithm>
#include <string>

namespace velmo
{
namespace
{

constexpr std::string_view kUntrusted = "untrusted comment: ";
constexpr std::string_view kTrusted = "trusted comment: ";
/// "ED", the key's number, the signature.
constexpr std::size_t kSignatureSize = 2 + sizeof(KeyNumber) + sizeof(ListSignature::Bytes);

Error Fault(const char* what)
{
    return {error_code::kInvalidData, what};
}

const unsigned char* Raw(std::string_view text)
{
    return reinterpret_cast<const unsigned char*>(text.data());
}

bool Verifies(const ListSignature::Bytes& signature, std::string_view signedBytes,
              const ListKey& key)
{
    return crypto_sign_verify_detached(signature.data(), Raw(signedBytes), signedBytes.size(),
                                       key.key.data()) == 0;
}

} // namespace

Result<ListSignature> ParseListSignature(std::string_view file)
{
    if (file.size() > kMostSignedBytes)
    {
        return Error{error_code::kTooLarge, "It is too large."};
    }
    if (!TakeLine(file).starts_with(kUntrusted))
    {
        return Fault("Line 1 is no untrusted comment.");
    }
    const auto bytes = FromBase64<kSignatureSize>(TakeLine(file));
    if (!bytes || (*bytes)[0] != 'E' || (*bytes)[1] != 'D')
    {
        return Fault("Line 2 is no signature of the kind that is taken here.");
    }
    ListSignature signature;
    const auto number = bytes->begin() + 2;
    std::copy_n(number, signature.keyNumber.size(), signature.keyNumber.begin());
    std::copy(number + signature.keyNumber.size(), bytes->end(), signature.ofText.begin());
    signature.comment = TakeLine(file);
    if (!signature.comment.starts_with(kTrusted))
    {
        return Fault("Line 3 is no trusted comment.");
    }
    signature.comment.remove_prefix(kTrusted.size());
    const auto ofComment = FromBase64<sizeof(ListSignature::Bytes)>(TakeLine(file));
    if (!ofComment)
    {
        return Fault("Line 4 is no signature.");
    }
    signature.ofComment = *ofComment;
    signature.text = file;
    return signature;
}

bool IsSignedBy(const ListSignature& signature, const ListKey& key)
{
    if (sodium_init() < 0 || signature.keyNumber != key.number)
    {
        return false;
    }
    std::string hash(crypto_generichash_BYTES_MAX, '\0');
    crypto_generichash(reinterpret_cast<unsigned char*>(hash.data()), hash.size(),
                       Raw(signature.text), signature.text.size(), nullptr, 0);
    std::string comment(signature.ofText.begin(), signature.ofText.end());
    comment += signature.comment;
    return Verifies(signature.ofText, hash, key) && Verifies(signature.ofComment, comment, key);
}

} // namespace velmo

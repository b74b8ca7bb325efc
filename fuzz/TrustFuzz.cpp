// Files of signed lists, signed texts and keys as anybody may serve them: what reads as a signed text must read the
// same once written, and every file of it must be found.
#include "tests/trust/ListSigner.h"
#include "trust/ListsDecision.h"

#include <cstdlib>

namespace
{

void Require(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

void ReadText(std::string_view bytes)
{
    const auto lists = velmo::ParseSignedLists(bytes);
    if (!lists)
    {
        return;
    }
    const std::string text = velmo::SignedListsText(lists.Value());
    const auto again = velmo::ParseSignedLists(text);
    Require(again && velmo::SignedListsText(again.Value()) == text);
    for (const velmo::SignedFile& file : lists.Value().files)
    {
        Require(velmo::IsServerPath(file.path));
        Require(again.Value().FaultOf(file.path, file.digest).empty());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const velmo::ListRules rules{{velmo::test::ListSigner(1).Key()}};
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto decision = velmo::DecideLists({bytes, {}}, {}, rules, {});
    Require(decision.lists.has_value() == (decision.use != velmo::ListUse::Refuse));
    ReadText(bytes);
    (void)velmo::ParseListKeys(bytes);
    return 0;
}

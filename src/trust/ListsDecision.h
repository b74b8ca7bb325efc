#pragma once

#include "trust/ListKey.h"
#include "trust/SignedLists.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/**
    Whether the vendor's lists, as they came from somewhere, may be shown, and whether anything may be
    installed from them. Pure: what was fetched, what was seen before, the rules and the clock go in, a
    value comes out. Any thread.
 */
namespace velmo
{

/// What may be done with lists; each is stricter than the one before it.
enum class ListUse
{
    Accept, ///< Shown, and installed from.
    Show,   ///< Shown; nothing is installed from them.
    Refuse, ///< Not used.
};

/// "accept", "show" or "refuse", in any case.
[[nodiscard]] std::optional<ListUse> ParseListUse(std::string_view word);

/// What becomes of unsigned lists: what the @a build says, by default Accept without keys and Show with
/// keys; a @a policy can only be stricter.
[[nodiscard]] ListUse UnsignedListUse(std::optional<ListUse> build, std::optional<ListUse> policy,
                                      bool hasKeys);

/// Whom this program believes.
struct ListRules
{
    std::vector<ListKey> keys; ///< Newest first. None: every signature counts for nothing.
    ListUse unsignedLists = ListUse::Accept;
    ListUse expiredLists = ListUse::Show;
};

/// One list, as it will be read.
struct FetchedList
{
    std::string path; ///< On the server, "/pub/demo/version.ini".
    FileDigest digest;
};

struct FetchedLists
{
    /// The bytes of the file of signed lists. Nothing only when the server says that it has none: while
    /// it does not answer, there is nothing to decide.
    std::optional<std::string_view> signedLists;
    std::vector<FetchedList> lists;
};

/// What is remembered of signed lists. It counts while its key is among the rules': of a key that had to
/// be given up, nothing keeps good lists away.
struct SeenLists
{
    std::uint64_t serial = 0;
    Sha256 textHash{};
    KeyNumber keyNumber{};

    [[nodiscard]] friend bool operator==(const SeenLists&, const SeenLists&) = default;
};

struct ListsDecision
{
    ListUse use = ListUse::Refuse;
    std::string text;   ///< Tells a person what is wrong; empty when nothing is, or nobody cares.
    std::string reason; ///< The same for the log, more exactly; empty when all is well.
    std::optional<SignedLists> lists; ///< Of a good signature, unless refused.
    std::optional<SeenLists> seen;    ///< To be remembered from now on.

    /// "Signed by the vendor, 11/23/2026", or what is missing for that.
    [[nodiscard]] std::string Mark() const;
};

/**
    Refused, whatever the rules: a file of signed lists that cannot be read or that no key signed, the
    signature of a key that a newer one has retired (once lists signed by a key were seen, those behind
    it in the rules no longer count), a lower serial than the one seen, the same serial with other text,
    no signature after one was seen, and a list that is not the signed one. Lists are expired from their
    last second on.
 */
[[nodiscard]] ListsDecision DecideLists(const FetchedLists& fetched,
                                        const std::optional<SeenLists>& seen,
                                        const ListRules& rules, std::chrono::sys_seconds now);

} // namespace velmo

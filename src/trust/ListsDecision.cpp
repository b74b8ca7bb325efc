#include "trust/ListsDecision.h"

#include "text/TextCase.h"
#include "text/UnitedStatesDate.h"
#include "trust/ListSignature.h"
#include "trust/UtcTime.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmo
{
namespace
{

constexpr std::array<std::string_view, 3> kUseWords{"accept", "show", "refuse"};

constexpr const char* kNoMark = "The vendor's lists are not signed.";
constexpr const char* kUnsigned =
    "The vendor's lists are not signed. They are shown, but nothing is installed from them.";
constexpr const char* kInvalid =
    "The signature of the vendor's lists is not valid. The lists were not used.";
constexpr const char* kUnknownKey = "The vendor's lists are signed with an unknown key. Please "
                                    "install the newest Update Manager.";

std::string OlderText(std::uint64_t serial, std::uint64_t seen)
{
    return "The vendor's lists (" + std::to_string(serial) +
           ") are older than those seen before (" + std::to_string(seen) + "). They were not used.";
}

std::string ExpiredText(std::chrono::sys_seconds expires)
{
    return "The vendor's lists expired on " +
           FormatDate(std::chrono::floor<std::chrono::days>(expires)) +
           ". Nothing is installed from them.";
}

auto KeyOf(const KeyNumber& number, const ListRules& rules)
{
    return std::ranges::find(rules.keys, number, &ListKey::number);
}

/// Takes the decision step by step; each step may end it with a refusal.
class Decider
{
  public:
    Decider(const FetchedLists& fetched, const std::optional<SeenLists>& seen,
            const ListRules& rules, std::chrono::sys_seconds now)
        : m_fetched(fetched), m_rules(rules), m_now(now)
    {
        m_decision.seen = seen;
        if (seen && KeyOf(seen->keyNumber, rules) != rules.keys.end())
        {
            m_seen = seen;
        }
    }

    ListsDecision Decide()
    {
        if (m_rules.keys.empty() || !m_fetched.signedLists)
        {
            return DecideUnsigned();
        }
        const auto signature = ParseListSignature(*m_fetched.signedLists);
        if (!signature)
        {
            return Refuse(kInvalid, signature.Failure().description);
        }
        return DecideSigned(signature.Value());
    }

  private:
    ListsDecision Refuse(std::string text, std::string reason)
    {
        m_decision.use = ListUse::Refuse;
        m_decision.text = std::move(text);
        m_decision.reason = std::move(reason);
        return m_decision;
    }

    ListsDecision DecideUnsigned()
    {
        if (m_seen)
        {
            return Refuse(kInvalid, "Signed lists were seen before; these bear no signature.");
        }
        m_decision.use = m_rules.unsignedLists;
        if (m_rules.unsignedLists == ListUse::Refuse)
        {
            return Refuse(kInvalid, "They bear no signature.");
        }
        if (m_rules.unsignedLists == ListUse::Show)
        {
            m_decision.text = kUnsigned;
            m_decision.reason = "They bear no signature.";
        }
        return m_decision;
    }

    ListsDecision DecideSigned(const ListSignature& signature)
    {
        const auto key = KeyOf(signature.keyNumber, m_rules);
        if (key == m_rules.keys.end())
        {
            return Refuse(kUnknownKey, "No key has the number of the signature's.");
        }
        if (m_seen && key > KeyOf(m_seen->keyNumber, m_rules))
        {
            return Refuse(kInvalid, "A newer key has retired the signature's.");
        }
        if (!IsSignedBy(signature, *key))
        {
            return Refuse(kInvalid, "The signature is not of this text and comment.");
        }
        auto lists = ParseSignedLists(signature.text);
        if (!lists)
        {
            return Refuse(kInvalid, lists.Failure().description);
        }
        const SeenLists now{lists.Value().serial, DigestOf(signature.text).hash, key->number};
        return DecideText(std::move(lists).Value(), now);
    }

    ListsDecision DecideText(SignedLists lists, const SeenLists& now)
    {
        if (m_seen && now.serial < m_seen->serial)
        {
            return Refuse(OlderText(now.serial, m_seen->serial), "The serial is lower.");
        }
        if (m_seen && now.serial == m_seen->serial && now.textHash != m_seen->textHash)
        {
            return Refuse(kInvalid, "The serial was seen before, with another text.");
        }
        for (const FetchedList& list : m_fetched.lists)
        {
            if (const std::string_view fault = lists.FaultOf(list.path, list.digest);
                !fault.empty())
            {
                return Refuse(kInvalid, list.path + std::string(fault) + ".");
            }
        }
        m_decision.use = ListUse::Accept;
        m_decision.seen = now;
        if (m_now >= lists.expires)
        {
            m_decision.use = m_rules.expiredLists;
            m_decision.reason = "They expired at " + UtcTimeText(lists.expires) + ".";
            m_decision.text = m_decision.use == ListUse::Accept ? "" : ExpiredText(lists.expires);
        }
        if (m_decision.use != ListUse::Refuse)
        {
            m_decision.lists = std::move(lists);
        }
        return m_decision;
    }

    const FetchedLists& m_fetched;
    const ListRules& m_rules;
    std::chrono::sys_seconds m_now;
    std::optional<SeenLists> m_seen;
    ListsDecision m_decision;
};

} // namespace

std::optional<ListUse> ParseListUse(std::string_view word)
{
    const auto found = std::ranges::find(kUseWords, LowerCase(Trimmed(word)));
    return found == kUseWords.end()
               ? std::nullopt
               : std::optional(static_cast<ListUse>(found - kUseWords.begin()));
}

ListUse UnsignedListUse(std::optional<ListUse> build, std::optional<ListUse> policy, bool hasKeys)
{
    const ListUse ofBuild = build.value_or(hasKeys ? ListUse::Show : ListUse::Accept);
    return std::max(ofBuild, policy.value_or(ofBuild));
}

std::string ListsDecision::Mark() const
{
    if (!text.empty())
    {
        return text;
    }
    if (!lists)
    {
        return kNoMark;
    }
    return "Signed by the vendor, " +
           FormatDate(std::chrono::floor<std::chrono::days>(lists->published));
}

ListsDecision DecideLists(const FetchedLists& fetched, const std::optional<SeenLists>& seen,
                          const ListRules& rules, std::chrono::sys_seconds now)
{
    return Decider(fetched, seen, rules, now).Decide();
}

} // namespace velmo

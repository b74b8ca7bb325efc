#include "trust/ListsDecision.h"

#include "tests/trust/ListSigner.h"
#include "trust/UtcTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace velmo
{
namespace
{

using test::ListSigner;
using enum ListUse;

constexpr const char* kVersionList = "/pub/demo/version.ini";
constexpr const char* kInvalid =
    "The signature of the vendor's lists is not valid. The lists were not used.";
constexpr const char* kExpired =
    "The vendor's lists expired on 2/21/2027. Nothing is installed from them.";

SignedLists Lists(std::uint64_t serial = 2026112301)
{
    return {serial,
            *ParseUtcTime("2026-11-23T07:59:13Z"),
            *ParseUtcTime("2027-02-21T07:59:13Z"),
            {{kVersionList, DigestOf("[Loadcalc 8]")}}};
}

/// Good lists, signed by the older of two keys, for a fault to be planted into.
struct Scene
{
    ListSigner newer{2};
    ListSigner older{1};
    std::string file = older.Sign(SignedListsText(Lists()));
    bool hasFile = true;
    std::string versionList = "[Loadcalc 8]";
    std::optional<SeenLists> seen;
    ListRules rules{{newer.Key(), older.Key()}, Show, Show};
    std::chrono::sys_seconds now = Lists().published + std::chrono::days(1);

    [[nodiscard]] ListsDecision Decide() const
    {
        FetchedLists fetched{{}, {{kVersionList, DigestOf(versionList)}}};
        if (hasFile)
        {
            fetched.signedLists = file;
        }
        return DecideLists(fetched, seen, rules, now);
    }

    void See(const std::string& signedFile)
    {
        seen = DecideLists({signedFile, {}}, {}, rules, Lists().published).seen;
        ASSERT_TRUE(seen);
    }
};

struct Row
{
    const char* name;
    std::function<void(Scene&)> plant;
    std::array<ListUse, 3> uses; ///< Under the modes accept, show and refuse.
    const char* text;
    const char* reason; ///< Where the text does not tell which fault it was.
};

const char* const kUnsigned =
    "The vendor's lists are not signed. They are shown, but nothing is installed from them.";
constexpr std::array kAccepted{Accept, Accept, Accept};
constexpr std::array kRefused{Refuse, Refuse, Refuse};

void Replace(std::string& text, const std::string& part, const std::string& other)
{
    ASSERT_NE(text.find(part), std::string::npos);
    text.replace(text.find(part), part.size(), other);
}

const Row kRows[] = {
    {"good", [](Scene&) {}, kAccepted, "", ""},
    {"missing, shown",
     [](Scene& s) { s.hasFile = false; },
     {Accept, Show, Refuse},
     nullptr,
     nullptr},
    {"cut", [](Scene& s) { s.file.resize(s.file.size() - 1); }, kRefused, kInvalid,
     "not of this text"},
    {"cut short", [](Scene& s) { s.file.resize(80); }, kRefused, kInvalid, "Line 2"},
    {"empty", [](Scene& s) { s.file.clear(); }, kRefused, kInvalid, "Line 1"},
    {"wrong key", [](Scene& s) { s.file = ListSigner(3).Sign(SignedListsText(Lists())); }, kRefused,
     "The vendor's lists are signed with an unknown key. Please install the newest Update Manager.",
     "No key"},
    {"another's signature under a key's number",
     [](Scene& s) { s.rules.keys[1].key = ListSigner(3).Key().key; }, kRefused, kInvalid,
     "not of this text"},
    {"legacy algorithm",
     [](Scene& s) { s.file = s.older.Sign(SignedListsText(Lists()), "c", "Ed"); }, kRefused,
     kInvalid, "Line 2"},
    {"changed text", [](Scene& s) { Replace(s.file, "2027-02-21", "2028-02-21"); }, kRefused,
     kInvalid, "not of this text"},
    {"changed comment", [](Scene& s) { Replace(s.file, "Velmo lists", "Velmo Lists"); }, kRefused,
     kInvalid, "not of this text and comment"},
    {"changed list", [](Scene& s) { s.versionList.back() = ')'; }, kRefused, kInvalid,
     "/pub/demo/version.ini: its content differs from the signed one."},
    {"list that is not signed",
     [](Scene& s) {
         SignedLists lists = Lists();
         lists.files[0].path = "/other.ini";
         s.file = s.older.Sign(SignedListsText(lists));
     },
     kRefused, kInvalid, "/pub/demo/version.ini: it is not among the signed files."},
    {"two entries for a path",
     [](Scene& s) {
         SignedLists lists = Lists();
         lists.files.push_back(lists.files[0]);
         s.file = s.older.Sign(SignedListsText(lists));
     },
     kRefused, kInvalid, "This path comes twice."},
    {"lower serial", [](Scene& s) { s.See(s.older.Sign(SignedListsText(Lists(2026112302)))); },
     kRefused,
     "The vendor's lists (2026112301) are older than those seen before (2026112302). They were not "
     "used.",
     "lower"},
    {"higher serial", [](Scene& s) { s.See(s.older.Sign(SignedListsText(Lists(2026112300)))); },
     kAccepted, "", ""},
    {"same serial, same text", [](Scene& s) { s.See(s.older.Sign(SignedListsText(Lists()), "x")); },
     kAccepted, "", ""},
    {"same serial, other text",
     [](Scene& s) { s.See(s.older.Sign(SignedListsText(Lists()) + "\n")); }, kRefused, kInvalid,
     "The serial was seen before, with another text."},
    {"in its last second", [](Scene& s) { s.now = Lists().expires - std::chrono::seconds(1); },
     kAccepted, "", ""},
    {"expired",
     [](Scene& s) { s.now = Lists().expires; },
     {Show, Show, Show},
     kExpired,
     "2027-02-21T07:59:13Z"},
    {"expired, accepted", [](Scene& s) { s.rules.expiredLists = Accept, s.now = Lists().expires; },
     kAccepted, "", "2027-02-21T07:59:13Z"},
    {"expired, refused", [](Scene& s) { s.rules.expiredLists = Refuse, s.now = Lists().expires; },
     kRefused, kExpired, "2027-02-21T07:59:13Z"},
    {"key change",
     [](Scene& s) {
         s.See(s.file);
         s.file = s.newer.Sign(SignedListsText(Lists(2026112302)));
     },
     kAccepted, "", ""},
    {"retired key",
     [](Scene& s) {
         s.See(s.newer.Sign(SignedListsText(Lists())));
         s.file = s.older.Sign(SignedListsText(Lists(2026112302)));
     },
     kRefused, kInvalid, "A newer key has retired"},
    {"seen under a key that was given up",
     [](Scene& s) {
         s.See(s.newer.Sign(SignedListsText(Lists(2026112399))));
         s.rules.keys.erase(s.rules.keys.begin());
     },
     kAccepted, "", ""},
    {"stripped after seen", [](Scene& s) { s.See(s.file), s.hasFile = false; }, kRefused, kInvalid,
     "Signed lists were seen before"},
    {"no keys", [](Scene& s) { s.rules.keys.clear(); }, {Accept, Show, Refuse}, nullptr, nullptr},
};

TEST(ListsDecisionTest, EachFaultIsJudgedUnderEachMode)
{
    const char* const unsignedTexts[] = {"", kUnsigned, kInvalid};
    const char* const unsignedReasons[] = {"", "They bear no signature.",
                                           "They bear no signature."};
    for (const Row& row : kRows)
    {
        for (const ListUse mode : {Accept, Show, Refuse})
        {
            SCOPED_TRACE(std::string(row.name) + ", mode " +
                         std::to_string(static_cast<int>(mode)));
            const auto index = static_cast<std::size_t>(mode);
            Scene scene;
            row.plant(scene);
            scene.rules.unsignedLists = mode;
            const ListsDecision decision = scene.Decide();
            EXPECT_EQ(decision.use, row.uses[index]);
            EXPECT_EQ(decision.text, row.text == nullptr ? unsignedTexts[index] : row.text);
            const char* const reason = row.reason == nullptr ? unsignedReasons[index] : row.reason;
            EXPECT_THAT(decision.reason, testing::HasSubstr(reason));
            EXPECT_EQ(decision.reason.empty(), *reason == '\0');
            const bool isSigned = scene.hasFile && !scene.rules.keys.empty();
            EXPECT_EQ(decision.lists.has_value(), isSigned && decision.use != Refuse);
        }
    }
}

TEST(ListsDecisionTest, OnlyGoodSignaturesAreRemembered)
{
    Scene scene;
    const auto first = scene.Decide().seen;
    ASSERT_TRUE(first);
    EXPECT_EQ(*first, (SeenLists{2026112301, DigestOf(SignedListsText(Lists())).hash,
                                 scene.older.Key().number}));

    scene.seen = first;
    scene.file = scene.newer.Sign(SignedListsText(Lists(2026112302)));
    scene.now = Lists().expires; // what has expired was published all the same
    const auto second = scene.Decide().seen;
    EXPECT_EQ(second->serial, 2026112302U);
    EXPECT_EQ(second->keyNumber, scene.newer.Key().number);

    scene.seen = second;
    for (const auto& fault : {std::function([](Scene& s) { s.versionList = "x"; }),
                              std::function([](Scene& s) { s.file.clear(); }),
                              std::function([](Scene& s) { s.hasFile = false; }),
                              std::function([](Scene& s) { s.rules.keys.clear(); })})
    {
        Scene faulty = scene;
        fault(faulty);
        EXPECT_EQ(faulty.Decide().seen, second);
    }
}

TEST(ListsDecisionTest, TheMarkTellsWhoPublishedOrWhatIsMissing)
{
    Scene scene;
    EXPECT_EQ(scene.Decide().Mark(), "Signed by the vendor, 11/23/2026");
    scene.now = Lists().expires;
    EXPECT_EQ(scene.Decide().Mark(), kExpired);
    scene.hasFile = false;
    EXPECT_EQ(scene.Decide().Mark(), kUnsigned);
    scene.rules.unsignedLists = Accept;
    EXPECT_EQ(scene.Decide().Mark(), "The vendor's lists are not signed.");
}

TEST(ListsDecisionTest, APolicyIsOnlyEverStricterThanTheBuild)
{
    EXPECT_EQ(UnsignedListUse({}, {}, false), Accept);
    EXPECT_EQ(UnsignedListUse({}, {}, true), Show);
    EXPECT_EQ(UnsignedListUse({}, Accept, true), Show);
    EXPECT_EQ(UnsignedListUse(Accept, {}, true), Accept);
    EXPECT_EQ(UnsignedListUse(Show, Refuse, true), Refuse);
    EXPECT_EQ(UnsignedListUse(Refuse, Show, false), Refuse);
    EXPECT_EQ(ParseListUse(" Show "), Show);
    EXPECT_EQ(ParseListUse("ACCEPT"), Accept);
    EXPECT_EQ(ParseListUse("refuse"), Refuse);
    EXPECT_EQ(ParseListUse("never"), std::nullopt);
}

} // namespace
} // namespace velmo

// Writes what the fuzzer of signed lists starts from into the folder given: a text, the same signed, in both forms, and
// keys.
#include "tests/trust/ListSigner.h"
#include "trust/SignedLists.h"

#include <filesystem>
#include <fstream>

int main(int count, char** arguments)
{
    if (count != 2)
    {
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    const velmo::test::ListSigner signer(1);
    const std::chrono::sys_seconds published{std::chrono::seconds(1'795'420'753)};
    const std::string text =
        velmo::SignedListsText({2026112301,
                                published,
                                published + std::chrono::days(90),
                                {{"/pub/demo/version.ini", velmo::DigestOf("[Loadcalc 8]")},
                                 {"/pub/mervala/mdb/a=b c.exe", velmo::DigestOf("a setup")}}});
    const auto write = [&](const char* name, const std::string& bytes) {
        return std::ofstream(folder / name, std::ios::binary) << bytes ? 0 : 1;
    };
    return write("text", text) + write("signed", signer.Sign(text)) +
           write("older", signer.Sign(text, "Velmo lists", "Ed")) +
           write("keys", signer.KeyText() + " " + velmo::test::ListSigner(2).KeyText());
}

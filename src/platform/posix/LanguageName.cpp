#include "platform/LanguageName.h"

#include <algorithm>
#include <array>

namespace velmo::platform
{
namespace
{

struct Language
{
    std::uint16_t id;
    std::string_view name;
};

/// By number. Numbers with a zero byte (a language without a country) are left out: CFileVersionInfo
/// never asks for one.
// clang-format off
constexpr std::array kLanguages{
    Language{0x0401, "Arabic (Saudi Arabia)"}, Language{0x0402, "Bulgarian (Bulgaria)"},
    Language{0x0403, "Catalan (Catalan)"}, Language{0x0404, "Chinese (Traditional, Taiwan)"},
    Language{0x0405, "Czech (Czech Republic)"}, Language{0x0406, "Danish (Denmark)"},
    Language{0x0407, "German (Germany)"}, Language{0x0408, "Greek (Greece)"},
    Language{0x0409, "English (United States)"}, Language{0x040A, "Spanish (Traditional Sort)"},
    Language{0x040B, "Finnish (Finland)"}, Language{0x040C, "French (France)"},
    Language{0x040D, "Hebrew (Israel)"}, Language{0x040E, "Hungarian (Hungary)"},
    Language{0x040F, "Icelandic (Iceland)"}, Language{0x0410, "Italian (Italy)"},
    Language{0x0411, "Japanese (Japan)"}, Language{0x0412, "Korean (Korea)"},
    Language{0x0413, "Dutch (Netherlands)"}, Language{0x0414, "Norwegian Bokmål (Norway)"},
    Language{0x0415, "Polish (Poland)"}, Language{0x0416, "Portuguese (Brazil)"},
    Language{0x0417, "Romansh (Switzerland)"}, Language{0x0418, "Romanian (Romania)"},
    Language{0x0419, "Russian (Russia)"}, Language{0x041A, "Croatian (Croatia)"},
    Language{0x041B, "Slovak (Slovakia)"}, Language{0x041C, "Albanian (Albania)"},
    Language{0x041D, "Swedish (Sweden)"}, Language{0x041E, "Thai (Thailand)"},
    Language{0x041F, "Turkish (Turkey)"}, Language{0x0420, "Urdu (Pakistan)"},
    Language{0x0421, "Indonesian (Indonesia)"}, Language{0x0422, "Ukrainian (Ukraine)"},
    Language{0x0423, "Belarusian (Belarus)"}, Language{0x0424, "Slovenian (Slovenia)"},
    Language{0x0425, "Estonian (Estonia)"}, Language{0x0426, "Latvian (Latvia)"},
    Language{0x0427, "Lithuanian (Lithuania)"}, Language{0x0428, "Tajik (Cyrillic, Tajikistan)"},
    Language{0x0429, "Persian"}, Language{0x042A, "Vietnamese (Vietnam)"},
    Language{0x042B, "Armenian (Armenia)"}, Language{0x042C, "Azerbaijani (Latin, Azerbaijan)"},
    Language{0x042D, "Basque (Basque)"}, Language{0x042E, "Upper Sorbian (Germany)"},
    Language{0x042F, "Macedonian (North Macedonia)"}, Language{0x0432, "Setswana (South Africa)"},
    Language{0x0434, "isiXhosa (South Africa)"}, Language{0x0435, "isiZulu (South Africa)"},
    Language{0x0436, "Afrikaans (South Africa)"}, Language{0x0437, "Georgian (Georgia)"},
    Language{0x0438, "Faroese (Faroe Islands)"}, Language{0x0439, "Hindi (India)"},
    Language{0x043A, "Maltese (Malta)"}, Language{0x043B, "Sami, Northern (Norway)"},
    Language{0x043E, "Malay (Malaysia)"}, Language{0x043F, "Kazakh (Kazakhstan)"},
    Language{0x0440, "Kyrgyz (Kyrgyzstan)"}, Language{0x0441, "Kiswahili (Kenya)"},
    Language{0x0442, "Turkmen (Turkmenistan)"}, Language{0x0443, "Uzbek (Latin, Uzbekistan)"},
    Language{0x0444, "Tatar (Russia)"}, Language{0x0445, "Bangla (India)"},
    Language{0x0446, "Punjabi (India)"}, Language{0x0447, "Gujarati (India)"},
    Language{0x0448, "Odia (India)"}, Language{0x0449, "Tamil (India)"},
    Language{0x044A, "Telugu (India)"}, Language{0x044B, "Kannada (India)"},
    Language{0x044C, "Malayalam (India)"}, Language{0x044D, "Assamese (India)"},
    Language{0x044E, "Marathi (India)"}, Language{0x044F, "Sanskrit (India)"},
    Language{0x0450, "Mongolian (Cyrillic, Mongolia)"}, Language{0x0451, "Tibetan (PRC)"},
    Language{0x0452, "Welsh (United Kingdom)"}, Language{0x0453, "Khmer (Cambodia)"},
    Language{0x0454, "Lao (Lao P.D.R.)"}, Language{0x0456, "Galician (Galician)"},
    Language{0x0457, "Konkani (India)"}, Language{0x045A, "Syriac (Syria)"},
    Language{0x045B, "Sinhala (Sri Lanka)"}, Language{0x045D, "Inuktitut (Syllabics, Canada)"},
    Language{0x045E, "Amharic (Ethiopia)"}, Language{0x0461, "Nepali (Nepal)"},
    Language{0x0462, "Frisian (Netherlands)"}, Language{0x0463, "Pashto (Afghanistan)"},
    Language{0x0464, "Filipino (Philippines)"}, Language{0x0465, "Divehi (Maldives)"},
    Language{0x0468, "Hausa (Latin, Nigeria)"}, Language{0x046A, "Yoruba (Nigeria)"},
    Language{0x046B, "Quechua (Bolivia)"}, Language{0x046C, "Sesotho sa Leboa (South Africa)"},
    Language{0x046D, "Bashkir (Russia)"}, Language{0x046E, "Luxembourgish (Luxembourg)"},
    Language{0x046F, "Greenlandic (Greenland)"}, Language{0x0470, "Igbo (Nigeria)"},
    Language{0x0478, "Yi (PRC)"}, Language{0x047A, "Mapudungun (Chile)"},
    Language{0x047C, "Mohawk (Mohawk)"}, Language{0x047E, "Breton (France)"},
    Language{0x0480, "Uyghur (PRC)"}, Language{0x0481, "Maori (New Zealand)"},
    Language{0x0482, "Occitan (France)"}, Language{0x0483, "Corsican (France)"},
    Language{0x0484, "Alsatian (France)"}, Language{0x0485, "Sakha (Russia)"},
    Language{0x0486, "K'iche (Guatemala)"}, Language{0x0487, "Kinyarwanda (Rwanda)"},
    Language{0x0488, "Wolof (Senegal)"}, Language{0x048C, "Dari (Afghanistan)"},
    Language{0x0491, "Scottish Gaelic (United Kingdom)"},
    Language{0x0492, "Central Kurdish (Iraq)"}, Language{0x0801, "Arabic (Iraq)"},
    Language{0x0804, "Chinese (Simplified, PRC)"}, Language{0x0807, "German (Switzerland)"},
    Language{0x0809, "English (United Kingdom)"}, Language{0x080A, "Spanish (Mexico)"},
    Language{0x080C, "French (Belgium)"}, Language{0x0810, "Italian (Switzerland)"},
    Language{0x0813, "Dutch (Belgium)"}, Language{0x0814, "Norwegian Nynorsk (Norway)"},
    Language{0x0816, "Portuguese (Portugal)"},
    Language{0x081A, "Serbian (Latin, Serbia and Montenegro (Former))"},
    Language{0x081D, "Swedish (Finland)"}, Language{0x082C, "Azerbaijani (Cyrillic, Azerbaijan)"},
    Language{0x082E, "Lower Sorbian (Germany)"}, Language{0x083B, "Sami, Northern (Sweden)"},
    Language{0x083C, "Irish (Ireland)"}, Language{0x083E, "Malay (Brunei Darussalam)"},
    Language{0x0843, "Uzbek (Cyrillic, Uzbekistan)"}, Language{0x0845, "Bangla (Bangladesh)"},
    Language{0x0850, "Mongolian (Traditional Mongolian, PRC)"},
    Language{0x085D, "Inuktitut (Latin, Canada)"}, Language{0x085F, "Tamazight (Latin, Algeria)"},
    Language{0x086B, "Quechua (Ecuador)"}, Language{0x0C01, "Arabic (Egypt)"},
    Language{0x0C04, "Chinese (Traditional, Hong Kong S.A.R.)"},
    Language{0x0C07, "German (Austria)"}, Language{0x0C09, "English (Australia)"},
    Language{0x0C0A, "Spanish (International Sort)"}, Language{0x0C0C, "French (Canada)"},
    Language{0x0C1A, "Serbian (Cyrillic, Serbia and Montenegro (Former))"},
    Language{0x0C3B, "Sami, Northern (Finland)"}, Language{0x0C6B, "Quechua (Peru)"},
    Language{0x1001, "Arabic (Libya)"}, Language{0x1004, "Chinese (Simplified, Singapore)"},
    Language{0x1007, "German (Luxembourg)"}, Language{0x1009, "English (Canada)"},
    Language{0x100A, "Spanish (Guatemala)"}, Language{0x100C, "French (Switzerland)"},
    Language{0x101A, "Croatian (Latin, Bosnia and Herzegovina)"},
    Language{0x1401, "Arabic (Algeria)"}, Language{0x1404, "Chinese (Traditional, Macao S.A.R.)"},
    Language{0x1407, "German (Liechtenstein)"}, Language{0x1409, "English (New Zealand)"},
    Language{0x140A, "Spanish (Costa Rica)"}, Language{0x140C, "French (Luxembourg)"},
    Language{0x141A, "Bosnian (Latin, Bosnia and Herzegovina)"},
    Language{0x1801, "Arabic (Morocco)"}, Language{0x1809, "English (Ireland)"},
    Language{0x180A, "Spanish (Panama)"}, Language{0x180C, "French (Monaco)"},
    Language{0x181A, "Serbian (Latin, Bosnia and Herzegovina)"},
    Language{0x1C01, "Arabic (Tunisia)"}, Language{0x1C09, "English (South Africa)"},
    Language{0x1C0A, "Spanish (Dominican Republic)"},
    Language{0x1C1A, "Serbian (Cyrillic, Bosnia and Herzegovina)"},
    Language{0x2001, "Arabic (Oman)"}, Language{0x2009, "English (Jamaica)"},
    Language{0x200A, "Spanish (Venezuela)"},
    Language{0x201A, "Bosnian (Cyrillic, Bosnia and Herzegovina)"},
    Language{0x2401, "Arabic (Yemen)"}, Language{0x2409, "English (Caribbean)"},
    Language{0x240A, "Spanish (Colombia)"}, Language{0x241A, "Serbian (Latin, Serbia)"},
    Language{0x2801, "Arabic (Syria)"}, Language{0x2809, "English (Belize)"},
    Language{0x280A, "Spanish (Peru)"}, Language{0x281A, "Serbian (Cyrillic, Serbia)"},
    Language{0x2C01, "Arabic (Jordan)"}, Language{0x2C09, "English (Trinidad and Tobago)"},
    Language{0x2C0A, "Spanish (Argentina)"}, Language{0x2C1A, "Serbian (Latin, Montenegro)"},
    Language{0x3001, "Arabic (Lebanon)"}, Language{0x3009, "English (Zimbabwe)"},
    Language{0x300A, "Spanish (Ecuador)"}, Language{0x301A, "Serbian (Cyrillic, Montenegro)"},
    Language{0x3401, "Arabic (Kuwait)"}, Language{0x3409, "English (Philippines)"},
    Language{0x340A, "Spanish (Chile)"}, Language{0x3801, "Arabic (U.A.E.)"},
    Language{0x380A, "Spanish (Uruguay)"}, Language{0x3C01, "Arabic (Bahrain)"},
    Language{0x3C0A, "Spanish (Paraguay)"}, Language{0x4001, "Arabic (Qatar)"},
    Language{0x4009, "English (India)"}, Language{0x400A, "Spanish (Bolivia)"},
    Language{0x4409, "English (Malaysia)"}, Language{0x440A, "Spanish (El Salvador)"},
    Language{0x4809, "English (Singapore)"}, Language{0x480A, "Spanish (Honduras)"},
    Language{0x4C0A, "Spanish (Nicaragua)"}, Language{0x500A, "Spanish (Puerto Rico)"},
    Language{0x540A, "Spanish (United States)"},
};
// clang-format on

static_assert(std::ranges::is_sorted(kLanguages, {}, &Language::id));

} // namespace

std::string LanguageName(std::uint16_t language)
{
    const auto found = std::ranges::lower_bound(kLanguages, language, {}, &Language::id);
    const bool isKnown = found != kLanguages.end() && found->id == language;
    return std::string(isKnown ? found->name : "Language Neutral");
}

} // namespace velmo::platform

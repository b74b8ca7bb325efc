#include "sample/SamplePage.h"

namespace velmo::sample
{
namespace
{

constexpr std::string_view kStyle =
    "body{margin:0;font:16px/1.5 'Segoe UI','DejaVu Sans',sans-serif;color:#23303a;"
    "background:#f4f6f7}"
    "header{background:#0f4c5c;color:#fff;padding:12px 28px;font-size:18px}"
    "main{max-width:46em;margin:24px auto;padding:8px 28px 24px;background:#fff;"
    "border:1px solid #dde3e6;border-radius:6px}"
    "h1{font-size:26px;color:#0f4c5c;margin:.6em 0 .3em}h2{font-size:19px;margin:1.2em 0 .2em}"
    "a{color:#0b6e8a}li{margin:.25em 0}.date{color:#5b6b75;margin:.1em 0}"
    "footer{text-align:center;color:#5b6b75;font-size:13px;padding-bottom:24px}";

} // namespace

std::string Escaped(std::string_view text)
{
    std::string escaped;
    for (const char c : text)
    {
        switch (c)
        {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

std::string Heading(std::string_view text)
{
    return "<h1>" + Escaped(text) + "</h1>\n";
}

std::string Paragraph(std::string_view text)
{
    return "<p>" + Escaped(text) + "</p>\n";
}

std::string Bullets(std::span<const std::string_view> items)
{
    std::string list = "<ul>\n";
    for (const std::string_view item : items)
    {
        list += "<li>" + Escaped(item) + "</li>\n";
    }
    return list + "</ul>\n";
}

std::string Link(std::string_view address, std::string_view text)
{
    return "<a href=\"" + Escaped(address) + "\">" + Escaped(text) + "</a>";
}

std::string Anchor(std::string_view name)
{
    // Both forms: old browser panes know only names, new ones only ids.
    return "<a name=\"" + Escaped(name) + "\" id=\"" + Escaped(name) + "\"></a>\n";
}

std::string Page(std::string_view title, std::string_view body)
{
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
           Escaped(title) + " - Velmo Software</title>\n<style>" + std::string(kStyle) +
           "</style>\n</head>\n<body>\n<header>Velmo Software</header>\n<main>\n" +
           std::string(body) +
           "</main>\n<footer>A sample vendor: its programs, makers and people are made up."
           "</footer>\n</body>\n</html>\n";
}

} // namespace velmo::sample

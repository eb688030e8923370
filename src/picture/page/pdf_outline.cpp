#include "picture/page/pdf_outline.h"

#include <charconv>
#include <cstdio>
#include <optional>
#include <string_view>

namespace picture
{

namespace
{

std::optional<size_t> numberAt(std::string_view text, size_t at)
{
    while (at < text.size() && (text[at] == ' ' || text[at] == '\n' || text[at] == '\r'))
        ++at;
    size_t number = 0;
    const auto [end, error] = std::from_chars(text.data() + at, text.data() + text.size(), number);
    return error == std::errc{} ? std::optional{number} : std::nullopt;
}

/// The number that follows a key in a dictionary.
std::optional<size_t> numberAfter(std::string_view text, std::string_view key)
{
    const size_t at = text.find(key);
    return at == std::string_view::npos ? std::nullopt : numberAt(text, at + key.size());
}

/// The text of an object, from its number to its end.
std::string_view objectText(std::string_view pdf, size_t number)
{
    const std::string head = "\n" + std::to_string(number) + " 0 obj";
    const size_t begin = pdf.find(head);
    if (begin == std::string_view::npos)
        return {};
    const size_t end = pdf.find("endobj", begin);
    return pdf.substr(begin + head.size(), end == std::string_view::npos ? end : end - begin - head.size());
}

/// The object numbers of the pages in order.
std::vector<size_t> pagesOf(std::string_view pdf, std::string_view catalogue)
{
    std::vector<size_t> pages;
    const std::optional<size_t> tree = numberAfter(catalogue, "/Pages");
    const std::string_view text = tree ? objectText(pdf, *tree) : std::string_view{};
    const size_t begin = text.find('[');
    const size_t end = text.find(']');
    for (size_t at = begin; at != std::string_view::npos && at + 1 < end;)
    {
        const std::optional<size_t> page = numberAt(text, at + 1);
        const size_t next = text.find('R', at + 1);
        if (!page || next == std::string_view::npos || next > end)
            break;
        pages.push_back(*page);
        at = next;
    }
    return pages;
}

std::string titleText(const std::u16string& title)
{
    std::string text = "<FEFF";
    for (const char16_t unit : title)
    {
        char digits[5];
        std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned>(unit));
        text += digits;
    }
    return text + ">";
}

/// Adds objects behind a PDF and the table of where they stand.
class Appendix
{
public:
    explicit Appendix(std::string pdf) : m_pdf{std::move(pdf)} {}

    void add(size_t number, const std::string& text)
    {
        m_places.emplace_back(number, m_pdf.size());
        m_pdf += std::to_string(number) + " 0 obj\n" + text + "\nendobj\n";
    }
    std::string finish(size_t size, size_t root, size_t previous)
    {
        const size_t table = m_pdf.size();
        m_pdf += "xref\n";
        for (const auto& [number, place] : m_places)
        {
            char line[32];
            std::snprintf(line, sizeof line, "%010zu 00000 n \n", place);
            m_pdf += std::to_string(number) + " 1\n" + line;
        }
        m_pdf += "trailer\n<<\n/Size " + std::to_string(size) + "\n/Root " + std::to_string(root) + " 0 R\n/Prev " +
                 std::to_string(previous) + "\n>>\nstartxref\n" + std::to_string(table) + "\n%%EOF\n";
        return std::move(m_pdf);
    }

private:
    std::string m_pdf;
    std::vector<std::pair<size_t, size_t>> m_places;
};

} // namespace

std::string withOutline(std::string pdf, const std::vector<OutlineEntry>& entries)
{
    const std::string_view text = pdf;
    const size_t trailer = text.rfind("trailer");
    if (entries.empty() || trailer == std::string_view::npos)
        return pdf;
    const std::optional<size_t> size = numberAfter(text.substr(trailer), "/Size");
    const std::optional<size_t> root = numberAfter(text.substr(trailer), "/Root");
    const std::optional<size_t> table = numberAfter(text.substr(trailer), "startxref");
    if (!size || !root || !table)
        return pdf;
    std::string catalogue{objectText(text, *root)};
    const std::vector<size_t> pages = pagesOf(text, catalogue);
    const size_t close = catalogue.rfind(">>");
    if (pages.empty() || close == std::string::npos)
        return pdf;
    const size_t outline = *size;
    const auto reference = [](size_t number) { return std::to_string(number) + " 0 R"; };
    catalogue.insert(close, "/Outlines " + reference(outline) + "\n/PageMode /UseOutlines\n");
    Appendix appendix{std::move(pdf)};
    appendix.add(*root, catalogue);
    appendix.add(outline, "<<\n/Type /Outlines\n/First " + reference(outline + 1) + "\n/Last " +
                              reference(outline + entries.size()) + "\n/Count " + std::to_string(entries.size()) +
                              "\n>>");
    for (size_t i = 0; i < entries.size(); ++i)
    {
        std::string entry = "<<\n/Title " + titleText(entries[i].title) + "\n/Parent " + reference(outline);
        if (i > 0)
            entry += "\n/Prev " + reference(outline + i);
        if (i + 1 < entries.size())
            entry += "\n/Next " + reference(outline + i + 2);
        if (entries[i].page < pages.size())
            entry += "\n/Dest [" + reference(pages[entries[i].page]) + " /Fit]";
        appendix.add(outline + 1 + i, entry + "\n>>");
    }
    return appendix.finish(outline + entries.size() + 1, *root, *table);
}

} // namespace picture

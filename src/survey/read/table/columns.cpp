#include "survey/read/table/columns.h"

#include "store/text/text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <set>

namespace survey
{

namespace
{

struct HeaderWord
{
    std::u16string_view word;
    char letter;
};

/// As surveyors head their columns. In Vietnam X is the northing.
constexpr std::array kHeaderWords{
    HeaderWord{u"p", 'P'},          HeaderWord{u"pt", 'P'},
    HeaderWord{u"point", 'P'},      HeaderWord{u"point number", 'P'},
    HeaderWord{u"name", 'P'},       HeaderWord{u"id", 'P'},
    HeaderWord{u"no", 'P'},         HeaderWord{u"number", 'P'},
    HeaderWord{u"stt", 'P'},        HeaderWord{u"tên", 'P'},
    HeaderWord{u"tên điểm", 'P'},   HeaderWord{u"điểm", 'P'},
    HeaderWord{u"số hiệu", 'P'},    HeaderWord{u"ten diem", 'P'},
    HeaderWord{u"n", 'N'},          HeaderWord{u"north", 'N'},
    HeaderWord{u"northing", 'N'},   HeaderWord{u"x", 'N'},
    HeaderWord{u"e", 'E'},          HeaderWord{u"east", 'E'},
    HeaderWord{u"easting", 'E'},    HeaderWord{u"y", 'E'},
    HeaderWord{u"z", 'Z'},          HeaderWord{u"h", 'Z'},
    HeaderWord{u"elev", 'Z'},       HeaderWord{u"elevation", 'Z'},
    HeaderWord{u"height", 'Z'},     HeaderWord{u"level", 'Z'},
    HeaderWord{u"cao độ", 'Z'},     HeaderWord{u"độ cao", 'Z'},
    HeaderWord{u"cao do", 'Z'},     HeaderWord{u"d", 'D'},
    HeaderWord{u"code", 'D'},       HeaderWord{u"codes", 'D'},
    HeaderWord{u"desc", 'D'},       HeaderWord{u"description", 'D'},
    HeaderWord{u"feature", 'D'},    HeaderWord{u"mã", 'D'},
    HeaderWord{u"ghi chú", 'D'},    HeaderWord{u"địa vật", 'D'},
    HeaderWord{u"mã địa vật", 'D'}, HeaderWord{u"ma", 'D'},
    HeaderWord{u"ghi chu", 'D'},    HeaderWord{u"sta", 'S'},
    HeaderWord{u"station", 'S'},    HeaderWord{u"chainage", 'S'},
    HeaderWord{u"section", 'S'},    HeaderWord{u"lý trình", 'S'},
    HeaderWord{u"cọc", 'S'},        HeaderWord{u"tên cọc", 'S'},
    HeaderWord{u"mặt cắt", 'S'},    HeaderWord{u"trắc ngang", 'S'},
    HeaderWord{u"ly trinh", 'S'},   HeaderWord{u"offset", 'O'},
    HeaderWord{u"o", 'O'},          HeaderWord{u"distance", 'O'},
    HeaderWord{u"dist", 'O'},       HeaderWord{u"khoảng cách", 'O'},
    HeaderWord{u"cự ly", 'O'},      HeaderWord{u"khoang cach", 'O'},
};

/// A heading without a unit in brackets, full stops and underlines.
std::u16string plainHeading(std::string_view field)
{
    std::u16string text = toUtf16(field.substr(0, field.find_first_of("([")));
    std::erase(text, u'.');
    std::replace(text.begin(), text.end(), u'_', u' ');
    while (!text.empty() && text.back() == u' ')
        text.pop_back();
    return text;
}

char letterOf(std::string_view field)
{
    const std::u16string heading = plainHeading(field);
    const auto* const found = std::find_if(kHeaderWords.begin(), kHeaderWords.end(),
                                           [&](const HeaderWord& each) { return equalNoCase(each.word, heading); });
    return found == kHeaderWords.end() ? '-' : found->letter;
}

bool isComplete(const Columns& columns)
{
    const bool isPoints = columns.has('N') && columns.has('E') && !columns.has('O');
    const bool isSections = columns.has('O') && columns.has('Z') && (columns.has('S') || columns.has('P'));
    return isPoints || isSections;
}

bool isNumber(const Row& row, size_t field)
{
    return field < row.fields.size() && fieldNumber(row.fields[field]).has_value();
}

/// Whether `is` holds for most of the rows.
template <class Is>
bool isMostly(const std::vector<Row>& rows, Is is)
{
    return static_cast<size_t>(std::count_if(rows.begin(), rows.end(), is)) * 2 > rows.size();
}

/// Whether the first column says the same on most rows as on others, as the name of a section does.
bool repeatsItsFirst(const std::vector<Row>& rows)
{
    std::set<std::string> names;
    for (const Row& row : rows)
        if (!row.fields.empty())
            names.insert(row.fields.front());
    return names.size() * 2 < rows.size();
}

} // namespace

std::string_view Columns::field(const Row& row, char letter) const
{
    const size_t column = m_letters.find(letter);
    return column < row.fields.size() ? std::string_view{row.fields[column]} : std::string_view{};
}

std::u16string Columns::codes(const Row& row, char separator) const
{
    const size_t first = m_letters.find('D');
    std::u16string text;
    for (size_t i = first; i < row.fields.size(); ++i)
        if (i == first || i >= m_letters.size())
            text += (i == first ? u"" : separator == 0 ? u" " : u";") + toUtf16(row.fields[i]);
    return text;
}

std::optional<Columns> columnsOf(std::string letters)
{
    std::transform(letters.begin(), letters.end(), letters.begin(), [](unsigned char c) { return std::toupper(c); });
    Columns columns{letters};
    std::string sorted = letters;
    std::erase(sorted, '-');
    std::sort(sorted.begin(), sorted.end());
    const bool isTwice = std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end();
    const bool isKnown = letters.find_first_not_of("PNEZDSO-") == letters.npos;
    return isKnown && !isTwice && isComplete(columns) ? std::optional{columns} : std::nullopt;
}

std::optional<Columns> columnsOfHeader(const Row& row)
{
    std::string letters;
    for (const std::string& field : row.fields)
    {
        const char letter = letterOf(field);
        letters += letters.find(letter) == letters.npos ? letter : '-';
    }
    return columnsOf(letters);
}

std::optional<Columns> guessColumns(const std::vector<Row>& rows)
{
    const bool hasFour = isMostly(rows, [](const Row& row) { return isNumber(row, 3); });
    const bool hasThree = isMostly(rows, [](const Row& row) { return isNumber(row, 1) && isNumber(row, 2); });
    if (!hasThree)
        return std::nullopt;
    if (repeatsItsFirst(rows))
        return Columns{"SOZD"};
    return hasFour ? std::optional{Columns{"PNEZD"}} : std::nullopt;
}

} // namespace survey

#include "picture/text/text_codes.h"

namespace picture
{

namespace
{

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

void toggle(std::vector<PlainText::Range>& ranges, size_t at, bool& isOn)
{
    if (isOn)
        ranges.back().end = at;
    else
        ranges.push_back({at, at});
    isOn = !isOn;
}

} // namespace

PlainText withoutCodes(std::u16string_view text)
{
    PlainText plain;
    bool isUnderlined = false;
    bool isOverlined = false;
    for (size_t i = 0; i < text.size(); ++i)
    {
        if (text.substr(i, 2) != u"%%" || i + 2 >= text.size())
        {
            plain.text += text[i];
            continue;
        }
        i += 2;
        switch (text[i])
        {
        case u'd':
        case u'D':
            plain.text += u'\u00B0';
            break;
        case u'p':
        case u'P':
            plain.text += u'\u00B1';
            break;
        case u'c':
        case u'C':
            plain.text += u'\u2300';
            break;
        case u'u':
        case u'U':
            toggle(plain.underlined, plain.text.size(), isUnderlined);
            break;
        case u'o':
        case u'O':
            toggle(plain.overlined, plain.text.size(), isOverlined);
            break;
        case u'k':
        case u'K':
            break;
        case u'%':
            plain.text += u'%';
            break;
        default:
            if (i + 2 < text.size() && isDigit(text[i]) && isDigit(text[i + 1]) && isDigit(text[i + 2]))
            {
                plain.text +=
                    static_cast<char16_t>((text[i] - u'0') * 100 + (text[i + 1] - u'0') * 10 + text[i + 2] - u'0');
                i += 2;
            }
            else
            {
                plain.text += u"%%";
                plain.text += text[i];
            }
        }
    }
    if (isUnderlined)
        plain.underlined.back().end = plain.text.size();
    if (isOverlined)
        plain.overlined.back().end = plain.text.size();
    return plain;
}

} // namespace picture

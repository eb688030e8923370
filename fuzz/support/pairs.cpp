#include "fuzz/support/pairs.h"

#include "store/group_codes.h"
#include "store/numbers.h"
#include "store/tags.h"

#include <algorithm>
#include <array>
#include <random>

namespace
{

using Random = std::minstd_rand;

size_t below(Random& random, size_t count)
{
    return random() % count;
}

template <class List>
const auto& anyOf(Random& random, const List& list)
{
    return list[below(random, std::size(list))];
}

bool isHandle(int code)
{
    return dxf::kindOf(code) == dxf::ValueKind::Handle;
}

/// A value that something may stumble over, of the kind that the code asks for; now and then of another.
std::string oddValue(Random& random, int code)
{
    static constexpr std::array kReals{"0",   "-0.0",   "1",        "0.5",   "-20.0", "20.001", "1e-300", "1e300",
                                       "nan", "-1e999", "580120,5", "58O.0", "+.5",   "",       " 7 ",    "1e15"};
    static constexpr std::array kIntegers{"0",  "1",  "-1", "2",      "3",     "4",          "8",   "16", "32",
                                          "64", "99", "",   "-32768", "70000", "2147483647", "1.0", "x"};
    static constexpr std::array kHandles{"0", "1F", "1B", "FFFFFFFF", "FFFFFFFFFFFFFFFF", "", "xyz", "100"};
    static constexpr std::array kTexts{"",     "*Model_Space", "*Paper_Space", "*U1",      "MT1",    "DC1",
                                       "dc_p", "CAY",          "T1",           "C1",       "0",      "{",
                                       "}",    "A|B",          "\xC3\x28",     "\\U+1EA1", "%%u",    "SV_INFOR",
                                       "ACAD", "TREE",         "EOF",          "ENDSEC",   "SEQEND", "a\x01z"};
    if (below(random, 12) == 0)
        return anyOf(random, kTexts);
    if (dxf::isReal(code))
        return anyOf(random, kReals);
    if (dxf::isInteger(code))
        return anyOf(random, kIntegers);
    return isHandle(code) ? anyOf(random, kHandles) : anyOf(random, kTexts);
}

/// Where the objects begin (pairs of code 0), and behind them the end.
std::vector<size_t> objectsOf(const Pairs& pairs)
{
    std::vector<size_t> begins;
    for (size_t i = 0; i < pairs.size(); ++i)
        if (pairs[i].code == 0)
            begins.push_back(i);
    begins.push_back(pairs.size());
    return begins;
}

auto at(Pairs& pairs, size_t index)
{
    return pairs.begin() + static_cast<ptrdiff_t>(index);
}

struct Object
{
    size_t begin;
    size_t end;
};

/// One object, or several in a row.
Object anyObject(const Pairs& pairs, Random& random)
{
    const std::vector<size_t> begins = objectsOf(pairs);
    if (begins.size() < 2)
        return {0, pairs.size()};
    const size_t first = below(random, begins.size() - 1);
    const size_t last = below(random, 4) != 0 ? first + 1 : std::min(first + 1 + below(random, 4), begins.size() - 1);
    return {begins[first], begins[last]};
}

Pairs copyOf(Pairs& pairs, const Object& object)
{
    return {at(pairs, object.begin), at(pairs, object.end)};
}

void insertObjects(Pairs& pairs, const Pairs& objects, Random& random)
{
    pairs.insert(at(pairs, anyObject(pairs, random).begin), objects.begin(), objects.end());
}

void setOddValue(Pairs& pairs, Random& random)
{
    Pair& pair = pairs[below(random, pairs.size())];
    pair.value = oddValue(random, pair.code);
}

/// A value that stands elsewhere: handles, names and counts then meet.
void takeValueOfAnother(Pairs& pairs, Random& random)
{
    Pair& pair = pairs[below(random, pairs.size())];
    for (int tries = 0; tries < 16; ++tries)
    {
        const Pair& other = pairs[below(random, pairs.size())];
        const bool alike = other.code == pair.code || (isHandle(other.code) && isHandle(pair.code)) || tries == 15;
        if (alike && other.value != pair.value)
        {
            pair.value = other.value;
            return;
        }
    }
}

void changeCode(Pairs& pairs, Random& random)
{
    pairs[below(random, pairs.size())].code = pairs[below(random, pairs.size())].code;
}

void insertPair(Pairs& pairs, Random& random)
{
    static constexpr std::array kCodes{0,   1,   2,    5,    8,    10,   20,   30,   38,   39,   40,  41,
                                       42,  43,  48,   60,   62,   66,   67,   70,   71,   72,   73,  90,
                                       91,  92,  93,   97,   98,   100,  102,  210,  330,  331,  340, 410,
                                       420, 999, 1000, 1001, 1002, 1005, 1010, 1040, 1070, 1071, -5,  500};
    const int code = anyOf(random, kCodes);
    pairs.insert(at(pairs, below(random, pairs.size() + 1)), {code, oddValue(random, code)});
}

void removePair(Pairs& pairs, Random& random)
{
    pairs.erase(at(pairs, below(random, pairs.size())));
}

void repeatPair(Pairs& pairs, Random& random)
{
    const size_t index = below(random, pairs.size());
    const Pair copy = pairs[index];
    pairs.insert(at(pairs, index), copy);
}

void swapPairs(Pairs& pairs, Random& random)
{
    std::swap(pairs[below(random, pairs.size())], pairs[below(random, pairs.size())]);
}

void removeObject(Pairs& pairs, Random& random)
{
    const Object object = anyObject(pairs, random);
    pairs.erase(at(pairs, object.begin), at(pairs, object.end));
}

void repeatObject(Pairs& pairs, Random& random)
{
    insertObjects(pairs, copyOf(pairs, anyObject(pairs, random)), random);
}

void moveObject(Pairs& pairs, Random& random)
{
    const Object object = anyObject(pairs, random);
    const Pairs moved = copyOf(pairs, object);
    pairs.erase(at(pairs, object.begin), at(pairs, object.end));
    if (!pairs.empty())
        insertObjects(pairs, moved, random);
}

/// Codes an object as a feature is coded.
void codeObject(Pairs& pairs, Random& random)
{
    const Pairs data{{1001, "SV_INFOR"}, {1002, "{"}, {1000, oddValue(random, 1)}, {1002, "}"}};
    pairs.insert(at(pairs, anyObject(pairs, random).end), data.begin(), data.end());
}

constexpr std::array kChanges{setOddValue,  setOddValue, takeValueOfAnother, takeValueOfAnother, changeCode,
                              insertPair,   removePair,  repeatPair,         swapPairs,          removeObject,
                              repeatObject, moveObject,  codeObject};

template <class T>
void append(std::string& bytes, T value)
{
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

} // namespace

Pairs pairsOf(std::string_view text)
{
    Pairs pairs;
    TagReader reader{text};
    for (Tag tag; reader.next(tag);)
        pairs.push_back({tag.code, std::string{tag.value}});
    return pairs;
}

std::string textOf(const Pairs& pairs)
{
    TagWriter out;
    for (const Pair& pair : pairs)
        out.text(pair.code, pair.value);
    return out.take();
}

std::string binaryOf(const Pairs& pairs, bool shortCodes)
{
    std::string bytes{"AutoCAD Binary DXF\r\n\x1a\0", 22};
    for (const Pair& pair : pairs)
    {
        if (shortCodes && pair.code >= 255)
            bytes += '\xFF';
        if (shortCodes && pair.code < 255)
            append(bytes, static_cast<uint8_t>(pair.code));
        else
            append(bytes, static_cast<int16_t>(pair.code));
        const Tag tag{pair.code, pair.value, nullptr, nullptr}; // what is no number is 0
        switch (dxf::kindOf(pair.code))
        {
        case dxf::ValueKind::Real:
            append(bytes, dxf::readReal(pair.value).value_or(0.0));
            break;
        case dxf::ValueKind::Int16:
            append(bytes, static_cast<int16_t>(tag.integerOr(0)));
            break;
        case dxf::ValueKind::Int32:
            append(bytes, static_cast<int32_t>(tag.integerOr(0)));
            break;
        case dxf::ValueKind::Int64:
            append(bytes, tag.integerOr(0));
            break;
        case dxf::ValueKind::Bool:
            append(bytes, static_cast<uint8_t>(tag.integerOr(0)));
            break;
        case dxf::ValueKind::Chunk:
            append(bytes, uint8_t{0});
            break;
        default:
            bytes.append(pair.value).push_back('\0');
        }
    }
    return bytes;
}

void mutate(Pairs& pairs, unsigned seed)
{
    Random random{seed};
    for (size_t changes = 1 + below(random, 3); changes > 0 && !pairs.empty(); --changes)
        anyOf(random, kChanges)(pairs, random);
}

std::string changedText(std::string_view text, unsigned seed)
{
    Pairs pairs = pairsOf(text);
    mutate(pairs, seed);
    return textOf(pairs);
}

void mix(Pairs& pairs, const Pairs& other, unsigned seed)
{
    Random random{seed};
    Pairs rest = other;
    if (!pairs.empty() && !rest.empty())
        insertObjects(pairs, copyOf(rest, anyObject(rest, random)), random);
}

#include "store/numbers.h"

#include <cstdlib>
#include <cstring>
#include <gmock/gmock.h>
#include <random>
#include <string>

namespace
{

/// Bit for bit what the C library reads, and as far.
void expectAsTheLibraryReads(const std::string& text)
{
    char* end = nullptr;
    const double expected = std::strtod(text.c_str(), &end);
    const dxf::LeadingReal found = dxf::leadingReal(text);
    EXPECT_EQ(found.length, static_cast<size_t>(end - text.c_str())) << text;
    EXPECT_EQ(std::memcmp(&found.value, &expected, sizeof expected), 0) << text << " gives " << found.value;
}

std::string digits(std::mt19937& random, size_t count)
{
    std::string text;
    for (size_t i = 0; i < count; ++i)
        text += static_cast<char>('0' + random() % 10);
    return text;
}

} // namespace

TEST(Numbers, AreReadToTheNearestDoubleWhateverTheirLength)
{
    std::mt19937 random{3};
    for (int i = 0; i < 20'000; ++i)
    {
        std::string text = (random() % 4 == 0 ? "-" : "") + digits(random, 1 + random() % 20);
        if (random() % 4 != 0)
            text += "." + digits(random, random() % 20);
        if (random() % 5 == 0)
            text += (random() % 2 == 0 ? "e" : "E-") + digits(random, 1 + random() % 2);
        if (random() % 3 == 0)
            text += random() % 2 == 0 ? " 7" : "x";
        expectAsTheLibraryReads(text);
    }
    for (const char* const text : {"9007199254740991", "9007199254740993", "-0", "0.1", "2317001.250123", "1.", ".5",
                                   "-.5e3", "000000000000000000001.5", "999999999999999999", "123456789012345678.5",
                                   "5e", "5e+", "1.e2", "", "-", ".", "e5", "+-3"})
        expectAsTheLibraryReads(text);
}

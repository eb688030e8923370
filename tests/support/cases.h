#pragma once

#include <filesystem>
#include <fstream>
#include <span>
#include <sstream>
#include <string>
#include <vector>

/// A line of a file of cases: fields parted by "|", each of words parted by blanks. `name` tells which case failed: the
/// heading it stands under, and its line.
struct Case
{
    std::string heading;
    std::string name;
    std::vector<std::vector<std::string>> fields;
};

/// The cases of tests/cases/FILE. Lines that begin with "#" are comments, [headings] stand in brackets.
inline std::vector<Case> readCases(const std::string& file)
{
    std::ifstream in(std::filesystem::path(VELOXA_SOURCE_DIR) / "tests" / "cases" / file);
    std::vector<Case> cases;
    std::string heading;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number)
    {
        if (line.empty() || line.front() == '#')
            continue;
        if (line.front() == '[')
        {
            heading = line.substr(1, line.find(']') - 1);
            continue;
        }
        Case& added = cases.emplace_back();
        added.heading = heading;
        added.name = heading + " (" + file + ", line " + std::to_string(number) + ": " + line + ")";
        added.fields.emplace_back();
        std::istringstream words(line);
        for (std::string word; words >> word;)
            if (word == "|")
                added.fields.emplace_back();
            else
                added.fields.back().push_back(word);
    }
    return cases;
}

/// The group codes and values of words like 62=3, a line each as words.
inline std::vector<std::string> pairsOf(std::span<const std::string> words)
{
    std::vector<std::string> pairs;
    for (const std::string& word : words)
    {
        const size_t equals = word.find('=');
        pairs.push_back(word.substr(0, equals));
        pairs.push_back(equals == std::string::npos ? "" : word.substr(equals + 1));
    }
    return pairs;
}

/// The numbers of a word, parted by ",".
inline std::vector<double> numbersOf(const std::string& word)
{
    std::vector<double> numbers;
    std::istringstream parts(word);
    for (std::string part; std::getline(parts, part, ',');)
        numbers.push_back(std::stod(part));
    return numbers;
}

#pragma once

#include "survey/model/survey.h"

#include <string>

namespace survey
{

/// What is found in one file on its way into a survey.
class FindingList
{
public:
    FindingList(Survey& survey, uint32_t file) : m_survey{survey}, m_file{file} {}

    /// Something of these lines is left out. Lines that follow one another and have the same fault are one finding.
    void unusable(uint32_t firstLine, uint32_t lastLine, const std::string& text)
    {
        add(FindingKind::kUnusable, firstLine, lastLine, text);
    }
    void unusable(uint32_t line, const std::string& text) { unusable(line, line, text); }
    void note(uint32_t line, const std::string& text) { add(FindingKind::kNote, line, line, text); }

    uint32_t file() const { return m_file; }
    Place place(uint32_t line) const { return {m_file, line}; }

private:
    void add(FindingKind kind, uint32_t firstLine, uint32_t lastLine, const std::string& text);

    Survey& m_survey;
    uint32_t m_file;
};

/// UTF-8 of a text between quotation marks, cut where it is long.
std::string quoted(std::u16string_view text);
std::string quoted(std::string_view text);

/// "1 point", "2 points".
std::string counted(size_t count, const std::string& what);

} // namespace survey

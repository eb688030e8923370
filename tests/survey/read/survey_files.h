#pragma once

#include "store/text/text.h"
#include "support/temp_folder.h"
#include "survey/read_survey.h"

#include <sstream>
#include <string>
#include <vector>

/// Files of a test in a folder of their own, read as the program reads them.
class SurveyFiles
{
public:
    survey::ReadOptions options;
    std::u16string alignment;

    /// Adds a file; the first line of `bytes` is line 1.
    SurveyFiles& add(const std::string& name, const std::string& bytes)
    {
        m_folder.write(name, bytes);
        m_names.push_back(name);
        return *this;
    }
    /// A LandXML file in metres; its first part stands on line 2.
    SurveyFiles& landXml(const std::string& parts, const std::string& name = "road.xml")
    {
        return add(name, R"(<LandXML version="1.2"><Units><Metric linearUnit="meter"/></Units>)"
                         "\n" +
                             parts + "</LandXML>\n");
    }

    std::string pathOf(const std::string& name) const { return (m_folder.path() / name).string(); }

    survey::Survey read() const
    {
        survey::Survey all;
        for (const std::string& name : m_names)
            readSurveyFile(all, pathOf(name), options);
        finishSurvey(all, alignment);
        return all;
    }

private:
    TempFolder m_folder;
    std::vector<std::string> m_names;
};

/// The findings, a text each: "2-4: text", with "note " in front of those that are only told.
inline std::vector<std::string> findingsOf(const survey::Survey& all)
{
    std::vector<std::string> texts;
    for (const survey::Finding& finding : all.findings)
    {
        std::string text = finding.kind == survey::FindingKind::kNote ? "note " : "";
        text += std::to_string(finding.first.line);
        if (finding.lastLine > finding.first.line)
            text += "-" + std::to_string(finding.lastLine);
        texts.push_back(text + ": " + finding.text);
    }
    return texts;
}

/// "name: code code at x y z", a text for each point.
inline std::vector<std::string> pointsOf(const survey::Survey& all)
{
    std::vector<std::string> texts;
    for (const survey::Point& point : all.points)
    {
        std::ostringstream text;
        text.precision(10);
        text << toUtf8(point.name) << ":";
        for (const std::u16string& code : point.codes)
            text << " " << toUtf8(code) << ",";
        text << " at " << point.position.x << " " << point.position.y;
        if (point.hasElevation)
            text << " " << point.position.z;
        texts.push_back(text.str());
    }
    return texts;
}

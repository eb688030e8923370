#include "console/commands/import_survey.h"

#include "console/commands/import_points.h"
#include "console/program/progress.h"
#include "console/report/import_report.h"
#include "console/text/shown_text.h"
#include "disk/read.h"
#include "disk/replace.h"
#include "files/dxf/drawing_names.h"
#include "files/dxf/new_drawing.h"
#include "host/db/database.h"
#include "survey/read_survey.h"

#include <iostream>

namespace console
{

namespace
{

bool isDrawingFile(const std::string& path)
{
    constexpr size_t kBegin = 4096;
    return files::isDrawing(disk::beginOfFile(path, kBegin));
}

void requireNames(const ImportOptions& options)
{
    if (options.output.empty())
        return;
    files::requireDrawingOutput(options.output);
    disk::requireReplaceable(options.output);
}

/// Reads the surveys of an import, one after the other.
class SurveyReader
{
public:
    SurveyReader(Program& program, const ImportOptions& options)
        : m_program{program}, m_options{options}, m_drawing{options.drawing}
    {
        if (!options.layerCodes.empty())
            m_drawing.layerCodes = survey::readLayerCodes(options.layerCodes, options.read.encoding);
    }

    survey::Survey read()
    {
        if (!m_options.alignmentFile.empty())
            readAlignmentFile();
        for (const std::string& path : m_options.surveys)
            readFile(path);
        finishSurvey(m_survey, toUtf16(m_options.alignment));
        return std::move(m_survey);
    }

private:
    void readFile(const std::string& path)
    {
        if (!isDrawingFile(path))
            return readSurveyFile(m_survey, path, m_options.read);
        AcDbDatabase drawing;
        drawing.adopt(m_program.session().reader().read(path, DrawingReader::Purpose::Symbol));
        readDrawing(m_survey, path, drawing, m_drawing, m_options.read);
    }

    /// Of the file with the alignment nothing else counts.
    void readAlignmentFile()
    {
        readFile(m_options.alignmentFile);
        m_survey.points.clear();
        m_survey.lines.clear();
        m_survey.sections.clear();
        m_survey.surfaces.clear();
        if (m_survey.alignments.empty() && m_survey.findings.empty())
            throw Failure{m_options.alignmentFile + ": has no alignment"};
    }

    Program& m_program;
    const ImportOptions& m_options;
    survey::DrawingOptions m_drawing;
    survey::Survey m_survey;
};

/// The drawing that the survey goes into; empty for a new one. A survey that is one drawing alone is added to.
std::string targetOf(const ImportOptions& options)
{
    if (!options.into.empty())
        return options.into;
    std::vector<std::string> drawings;
    for (const std::string& path : options.surveys)
        if (isDrawingFile(path))
            drawings.push_back(path);
    return drawings.size() == 1 ? drawings.front() : std::string{};
}

DrawingStore openTarget(Program& program, const std::string& target)
{
    return target.empty() ? files::newDrawing()
                          : program.session().reader().read(target, DrawingReader::Purpose::Drawing);
}

void print(const ImportReport& report, bool json)
{
    std::cout << (json ? oneLine(report.json()) + "\n" : shownText(report.text()));
}

void save(AcDbDatabase& drawing, const ImportOptions& options, const std::string& target, const disk::FileStamp& seen)
{
    const bool isOwn = !target.empty() && disk::isSameFile(options.output, target);
    try
    {
        files::saveDrawing(drawing, options.output, isOwn && !options.common.overwrite ? seen : disk::FileStamp{});
    }
    catch (const disk::ChangedFile& changed)
    {
        throw Failure{changed.what() + std::string{", and is not overwritten (--overwrite insists)"}};
    }
}

} // namespace

void runImport(const ImportOptions& options)
{
    const Progress progress{"importing " + options.surveys.front()};
    requireNames(options);
    CommonOptions common = options.common;
    common.keepsNothing = true;
    Program program{common};
    const survey::Survey all = SurveyReader{program, options}.read();

    const std::string target = targetOf(options);
    const disk::FileStamp seen = disk::stampOf(target);
    AcDbDatabase drawing;
    drawing.adopt(openTarget(program, target));
    ImportReport report;
    report.survey = &all;
    report.result = writeDrawing(all, options.write, drawing);
    report.tolerance = options.write.tolerance;
    program.refuseDamage();

    const bool stops = report.unusable() > 0 && !options.keepGoing;
    if (!stops && !options.preview)
    {
        save(drawing, options, target, seen);
        report.output = options.output;
    }
    if (!stops && !options.unusedPoints.empty())
        writePointTable(options.unusedPoints, all, report.result.unusedPoints);
    print(report, options.common.json);
    if (stops)
        throw Failure{std::to_string(report.unusable()) + (report.unusable() == 1 ? " thing" : " things") +
                      " of the surveys cannot be used: nothing is saved (--keep-going saves what can be used)"};
}

} // namespace console

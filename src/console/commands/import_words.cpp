#include "console/commands/import_words.h"

#include "survey/line/station_text.h"

#include <CLI/CLI.hpp>
#include <array>
#include <cmath>

namespace console
{

namespace
{

/// An option whose word is read by `take`, which answers false for one that it does not know.
template <class Take>
CLI::Option* addWord(CLI::App& command, const char* name, const char* type, const char* description, Take take)
{
    return command
        .add_option_function<std::string>(
            name,
            [name, take](const std::string& word)
            {
                if (!take(word))
                    throw CLI::ValidationError{name, "\"" + word + "\" is not understood"};
            },
            description)
        ->type_name(type);
}

void addLength(CLI::App& command, const char* name, double& length, const char* description)
{
    command.add_option(name, length, description)->type_name("METRES")->check(CLI::PositiveNumber);
}

std::optional<double> realOf(std::string_view word)
{
    const auto station = survey::readStation(word);
    return station ? std::optional{station->value} : std::nullopt;
}

/// "4.5,4.5" or "-4.5,4.5": how far the edges lie to the left and the right.
std::optional<survey::DesignEdges> edgesOf(const std::string& word)
{
    const size_t comma = word.find(',');
    const auto left = realOf(std::string_view{word}.substr(0, comma));
    const auto right = comma == word.npos ? std::nullopt : realOf(std::string_view{word}.substr(comma + 1));
    if (!left || !right)
        return std::nullopt;
    return survey::DesignEdges{-std::fabs(*left), std::fabs(*right)};
}

/// "1:200" or "200".
std::optional<double> scaleOf(std::string_view word)
{
    const auto scale = realOf(word.starts_with("1:") ? word.substr(2) : word);
    return scale && *scale > 0.0 ? scale : std::nullopt;
}

template <class Value, class Target>
bool took(const std::optional<Value>& value, Target& to)
{
    if (value)
        to = *value;
    return value.has_value();
}

std::optional<survey::CodeSource> codeSourceOf(const std::string& word)
{
    using survey::CodeSource;
    constexpr std::array<std::pair<const char*, CodeSource>, 3> kWords{
        {{"desc", CodeSource::kDescription}, {"name", CodeSource::kName}, {"coding", CodeSource::kCoding}}};
    for (const auto& [known, source] : kWords)
        if (word == known)
            return source;
    return std::nullopt;
}

void declareReading(CLI::App& command, ImportOptions& options)
{
    survey::ReadOptions& read = options.read;
    command.add_option("--columns", read.columns,
                       "columns of tables, a letter each: P name, N northing, E easting, Z elevation, D code, "
                       "S section or station, O offset, - nothing");
    command.add_option("--encoding", read.encoding, "encoding of texts: utf-8, tcvn3, windows-1258 ...");
    addWord(command, "--unit", "UNIT", "unit of files that do not say theirs: m, ft, us-ft ... (m)",
            [&read](const std::string& word) { return took(survey::findLengthUnit(word), read.unit); });
    command
        .add_option_function<std::vector<std::string>>(
            "--swap",
            [&read](const std::vector<std::string>& files) { read.swapped.insert(files.begin(), files.end()); },
            "a file whose northings and eastings are swapped (may be given more than once)")
        ->type_name("FILE")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.add_option("--alignment-file", options.alignmentFile, "LandXML or drawing that has the alignment")
        ->type_name("FILE");
    command.add_option("--alignment", options.alignment, "the alignment that section tables belong to")
        ->type_name("NAME");
}

void declareDrawings(CLI::App& command, ImportOptions& options)
{
    survey::DrawingOptions& drawing = options.drawing;
    command
        .add_option_function<std::string>(
            "--alignment-layer", [&drawing](const std::string& name) { drawing.alignmentLayer = toUtf16(name); },
            "layer of a drawing whose line is the alignment")
        ->type_name("NAME");
    addWord(command, "--start-station", "STATION", "station of that line's start (0)",
            [&drawing](const std::string& word) { return took(realOf(word), drawing.startStation); });
    command
        .add_option_function<std::vector<std::string>>(
            "--points-from",
            [&drawing](const std::vector<std::string>& words)
            {
                for (const std::string& word : words)
                    if (const auto source = survey::readPointSource(word))
                        drawing.points.push_back(*source);
                    else
                        throw CLI::ValidationError{"--points-from",
                                                   "\"" + word + "\" is none of layer, block and text"};
            },
            "points of a drawing: layer, block or text, with names behind a colon (may be given more than once)")
        ->type_name("WHERE[:NAMES]")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    addLength(command, "--text-distance", drawing.textDistance, "from a point to the texts that belong to it (2)");
    command.add_flag("--code-from-layer", drawing.codeFromLayer, "the lines of a drawing are coded by their layers");
    command
        .add_option("--layer-codes", options.layerCodes,
                    "table of layers and their codes, for --code-from-layer; other layers are left out")
        ->type_name("FILE.csv");
}

void declareSections(CLI::App& command, survey::WriteOptions& write)
{
    addLength(command, "--spacing", write.spacing, "between sections that are cut (20)");
    command.add_flag("--key-points", write.atKeyPoints, "cut sections where the alignment's elements meet, too");
    addLength(command, "--half-width", write.halfWidth, "of sections, to each side (20)");
    command
        .add_option_function<std::string>(
            "--surface", [&write](const std::string& name) { write.surface = toUtf16(name); },
            "the surface that is cut; by default the first that has triangles")
        ->type_name("NAME");
    command
        .add_option_function<double>(
            "--max-edge", [&write](double length) { write.maxEdge = length; },
            "longest edge of triangles that are made of points")
        ->type_name("METRES")
        ->check(CLI::PositiveNumber);
    addWord(command, "--scale", "1:N", "of the sections' drawings (1:200)",
            [&write](const std::string& word) { return took(scaleOf(word), write.scale); });
    addLength(command, "--tolerance", write.tolerance, "from a section within which a point belongs to it (0.5)");
    command.add_flag("--snap", write.snap, "put the points of sections on their lines");
    addWord(command, "--edges", "L,R",
            "how far the design's edges lie to the left and the right, where no file says it",
            [&write](const std::string& word) { return took(edgesOf(word), write.edges); });
    addWord(command, "--code-from", "desc|name|coding", "what of a line becomes its code (desc, else coding)",
            [&write](const std::string& word) { return took(codeSourceOf(word), write.codeFrom); });
}

} // namespace

void declareImport(CLI::App& command, ImportOptions& options)
{
    command.add_option("surveys", options.surveys, "LandXML files, tables of points or sections, drawings")->required();
    CLI::Option* output = command.add_option("-o", options.output, "the drawing that is made (.dxf)");
    output->type_name("OUT");
    command.add_flag("--preview", options.preview, "read and report, save nothing");
    command.add_flag("--keep-going", options.keepGoing, "use what can be used although something cannot");
    command.add_option("--into", options.into, "a drawing to add to; its contents stay as they are")
        ->type_name("DRAWING");
    command.add_flag("--replace", options.write.replace, "with --into: alignments of the same name go");
    command.add_flag("--overwrite", options.common.overwrite,
                     "replace a drawing that was changed on disk since it was opened");
    command.add_option("--unused-points", options.unusedPoints, "file for the points that belong to no section")
        ->type_name("FILE.csv");
    command.add_flag("--json", options.common.json, "print the result as one line of JSON");
    declareReading(command, options);
    declareDrawings(command, options);
    declareSections(command, options.write);
    command.parse_complete_callback(
        [&options]
        {
            if (options.output.empty() && !options.preview)
                throw CLI::RequiredError{"-o"};
        });
}

} // namespace console

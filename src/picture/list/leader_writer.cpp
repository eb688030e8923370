#include "picture/list/entity_writer.h"

#include "host/db/database.h"
#include "store/block_index.h"
#include "store/handle_table.h"
#include "store/pair_edit.h"

#include <algorithm>
#include <array>

namespace picture
{

namespace
{

/// Points of a smooth curve through others, which it passes as the way between its neighbours goes.
AcGePoint3dArray smoothThrough(const AcGePoint3dArray& points)
{
    constexpr int kSteps = 16;
    if (points.size() < 3)
        return points;
    const auto tangentAt = [&](size_t i)
    {
        const AcGePoint3d& before = points[i == 0 ? 0 : i - 1];
        const AcGePoint3d& behind = points[i + 1 < points.size() ? i + 1 : i];
        return (behind - before) / (i == 0 || i + 1 == points.size() ? 1.0 : 2.0);
    };
    AcGePoint3dArray smooth{points.front()};
    for (size_t i = 1; i < points.size(); ++i)
        for (int step = 1; step <= kSteps; ++step)
        {
            const double t = static_cast<double>(step) / kSteps;
            const double s = 1.0 - t;
            const AcGeVector3d way = points[i] - points[i - 1];
            smooth.push_back(points[i - 1] + way * (t * t * (3.0 - 2.0 * t)) + tangentAt(i - 1) * (t * s * s) -
                             tangentAt(i) * (t * t * s));
        }
    return smooth;
}

/// A leader with a text or a block at its end.
struct MultiLeader
{
    enum Content
    {
        kNone,
        kBlock,
        kText
    };
    struct Branch
    {
        AcGePoint3d end;
        bool hasEnd = false;
        AcGeVector3d dogleg;
        double doglegLength = 0.0;
        std::vector<AcGePoint3dArray> lines;
    };

    std::vector<Branch> branches;
    MTextValues text;
    uint64_t textStyle = 0;
    bool hasText = false;
    bool hasBlock = false;
    uint64_t block = 0;
    AcGePoint3d blockAt;
    AcGePoint3d blockScale{1.0, 1.0, 1.0};
    double blockRotation = 0.0;
    double arrow = 0.0;
    int64_t lineKind = 1; ///< 0 none, 1 straight, 2 smooth
    bool hasDogleg = true;
    int64_t content = kText;

    explicit MultiLeader(std::string_view pairs);

private:
    void readContext(const Tag& tag, OwnPairs& pairs);
    void readBranch(const Tag& tag, OwnPairs& pairs);
};

MultiLeader::MultiLeader(std::string_view text_)
{
    enum
    {
        kOutside,
        kContext,
        kBranch,
        kLine
    } in = kOutside;
    OwnPairs pairs{text_};
    for (Tag tag; pairs.next(tag);)
    {
        if (tag.code == 300 && tag.word() == "CONTEXT_DATA{")
            in = kContext;
        else if (tag.code == 302 && tag.word() == "LEADER{")
        {
            branches.emplace_back();
            in = kBranch;
        }
        else if (tag.code == 304 && in == kBranch && tag.word() == "LEADER_LINE{")
        {
            branches.back().lines.emplace_back();
            in = kLine;
        }
        else if (tag.code == 305 && in == kLine)
            in = kBranch;
        else if (tag.code == 303 && in == kBranch)
            in = kContext;
        else if (tag.code == 301 && in == kContext)
            in = kOutside;
        else if (in == kContext)
            readContext(tag, pairs);
        else if (in == kBranch)
            readBranch(tag, pairs);
        else if (in == kLine && tag.code == 10)
            branches.back().lines.back().push_back(pairs.pointFrom(tag));
        else if (in == kOutside && tag.code == 170)
            lineKind = tag.integer();
        else if (in == kOutside && tag.code == 172)
            content = tag.integer();
        else if (in == kOutside && tag.code == 291)
            hasDogleg = tag.integer() != 0;
    }
}

void MultiLeader::readContext(const Tag& tag, OwnPairs& pairs)
{
    switch (tag.code)
    {
    case 41:
        text.frame.height = tag.real();
        break;
    case 140:
        arrow = tag.real();
        break;
    case 290:
        hasText = tag.integer() != 0;
        break;
    case 304:
        text.bytes = tag.value;
        break;
    case 11:
        text.normal = pairs.pointFrom(tag).asVector();
        break;
    case 340:
        textStyle = tag.handle();
        break;
    case 12:
        text.at = pairs.pointFrom(tag);
        break;
    case 13:
        text.along = pairs.pointFrom(tag).asVector();
        text.hasDirection = true;
        break;
    case 43:
        text.frame.width = tag.real();
        break;
    case 45:
        text.frame.lineSpacing = tag.real() > 0.0 ? tag.real() : 1.0;
        break;
    case 171:
        text.frame.attachment = static_cast<int>(std::clamp<int64_t>(tag.integer(), 1, 3));
        break;
    case 296:
        hasBlock = tag.integer() != 0;
        break;
    case 341:
        block = tag.handle();
        break;
    case 15:
        blockAt = pairs.pointFrom(tag);
        break;
    case 16:
        blockScale = pairs.pointFrom(tag);
        break;
    case 46:
        blockRotation = tag.real();
        break;
    default:
        break;
    }
}

void MultiLeader::readBranch(const Tag& tag, OwnPairs& pairs)
{
    Branch& branch = branches.back();
    if (tag.code == 290)
        branch.hasEnd = tag.integer() != 0;
    else if (tag.code == 10)
        branch.end = pairs.pointFrom(tag);
    else if (tag.code == 11)
        branch.dogleg = pairs.pointFrom(tag).asVector();
    else if (tag.code == 40)
        branch.doglegLength = tag.real();
}

/// The name of a table's record as it stands in the file.
std::string_view rawNameOf(const ObjectRecord* record)
{
    if (record == nullptr)
        return {};
    OwnPairs pairs{record->view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 2)
            return tag.word();
    return {};
}

} // namespace

void EntityWriter::writeLeader(std::string_view pairs)
{
    AcGePoint3dArray points;
    bool hasHead = true;
    bool isSmooth = false;
    OwnPairs reader{pairs};
    for (Tag tag; reader.next(tag);)
        if (tag.code == 71)
            hasHead = tag.integer() != 0;
        else if (tag.code == 72)
            isSmooth = tag.integer() == 1;
        else if (tag.code == 10)
            points.push_back(reader.pointFrom(tag));
    writePath(isSmooth ? smoothThrough(points) : points, false);
    if (hasHead && points.size() > 1)
        writeArrowhead(points[0], points[1], m_lists.arrowSize());
}

/// A filled triangle at the beginning of a way, where there is room for it.
void EntityWriter::writeArrowhead(const AcGePoint3d& tip, const AcGePoint3d& towards, double length)
{
    constexpr double kSlimness = 6.0;
    const AcGeVector3d way = towards - tip;
    if (!(way.length() > 2.0 * length) || !(length > 0.0))
        return;
    const AcGeVector3d along = way.normal() * length;
    const AcGeVector3d across = AcGeVector3d{-along.y, along.x, 0.0} / kSlimness;
    writeLoops({{place(tip), place(tip + along + across), place(tip + along - across)}}, Primitive::kArea);
}

void EntityWriter::writeMultiLeader(std::string_view pairs)
{
    MultiLeader leader{pairs};
    for (const MultiLeader::Branch& branch : leader.branches)
    {
        for (AcGePoint3dArray line : branch.lines)
        {
            if (branch.hasEnd)
                line.push_back(branch.end);
            if (line.size() < 2 || leader.lineKind == 0)
                continue;
            writePath(leader.lineKind == 2 ? smoothThrough(line) : line, false);
            writeArrowhead(line[0], line[1], leader.arrow);
        }
        if (branch.hasEnd && leader.hasDogleg && leader.lineKind == 1)
            writePath({branch.end, branch.end + branch.dogleg * branch.doglegLength}, false);
    }
    if (leader.hasText && leader.content == MultiLeader::kText)
    {
        if (const std::string_view style = rawNameOf(m_lists.database().handles().find(leader.textStyle));
            !style.empty())
            leader.text.style = style;
        writeMTextValues(leader.text);
    }
    const std::string_view name =
        leader.hasBlock ? rawNameOf(m_lists.database().handles().find(leader.block)) : std::string_view{};
    if (name.empty())
        return;
    const uint32_t block = m_lists.blockNamed(name);
    const Container* contents = m_lists.database().blocks().contents(m_lists.database().encoding().decode(name));
    if (block == DrawingLists::kNone || contents == nullptr)
        return;
    const AcGePoint3d base = basePointOf(*contents);
    const Map2d placed = worldAt(leader.blockAt) * Map2d::rotation(leader.blockRotation) *
                         Map2d::scaling(leader.blockScale.x, leader.blockScale.y) *
                         Map2d::translation({-base.x, -base.y});
    m_list.addBlock(m_look, {placed, block}, nullptr, m_lists.list(block));
}

} // namespace picture

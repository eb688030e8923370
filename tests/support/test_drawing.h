#pragma once

#include "kernel/point2d.h"
#include "kernel/point3d.h"
#include "store/tags.h"
#include "store/text/text_encoding.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class TestDrawing;

/// A cross-section that a test drawing is given. Calls chain.
class TestSection
{
public:
    /// The ground line in the section's own drawing, as (offset, height above the base point); offsets are multiplied
    /// by 1000 / scale of the alignment. Without it the section has none.
    TestSection& ground(const std::vector<AcGePoint2d>& line);
    /// Where offset 0 on the datum stands. By default each section has a place of its own, far from the plan.
    TestSection& base(const AcGePoint3d& point);
    /// A survey point of the section: a coded point added to the drawing.
    TestSection& point(const std::string& code, const AcGePoint3d& position);
    TestSection& pointHandles(std::vector<uint64_t> handles);
    TestSection& groundHandle(uint64_t handle);
    TestSection& dcOffsets(std::vector<double> offsets);
    TestSection& flags(int bits);
    TestSection& drawn(std::vector<uint64_t> handles);

    uint64_t groundLine() const { return m_ground; }
    const AcGePoint3d& basePoint() const { return m_base; }

private:
    friend class TestDrawing;
    friend class TestAlignment;

    TestDrawing* m_drawing = nullptr;
    std::string m_name;
    double m_factor = 1.0; ///< drawing units per unit of offset
    AcGePoint3d m_a;
    AcGePoint3d m_b;
    AcGePoint3d m_base;
    uint64_t m_ground = 0;
    int m_flags = 0;
    std::vector<uint64_t> m_points;
    std::vector<double> m_dcOffsets;
    std::vector<uint64_t> m_drawn;
};

/// An alignment that a test drawing is given.
class TestAlignment
{
public:
    /// A cross-section with its line in the plan from `a` (offsets below 0) to `b`.
    TestSection& section(const std::string& name, const AcGePoint2d& a, const AcGePoint2d& b);
    /// Scale of the section drawings (1000 by default: a unit of offset is a drawing unit).
    TestAlignment& scale(double value);
    /// Half-lengths of the search line (50 by default).
    TestAlignment& extents(double one, double two);

    uint64_t handle() const { return m_handle; }

private:
    friend class TestDrawing;

    TestDrawing* m_drawing = nullptr;
    std::string m_name;
    uint64_t m_handle = 0;
    double m_scale = 1000.0;
    double m_extent1 = 50.0;
    double m_extent2 = 50.0;
    std::list<TestSection> m_sections;
};

/// Makes the text of a small whole drawing. Everything that adds an entity answers its handle. Texts are UTF-8 here and
/// written as the version asks: UTF-8 from R2007 (1021) on, code page 1258 before. Points written in braces.
class TestDrawing
{
public:
    explicit TestDrawing(int version = 1027, const std::string& codePage = "ANSI_1258");
    TestDrawing(const TestDrawing&) = delete;
    TestDrawing& operator=(const TestDrawing&) = delete;

    TestAlignment& alignment(const std::string& name);

    /// A lightweight polyline with a feature code (extended data of SV_INFOR); without one for an empty code.
    uint64_t feature(const std::string& code, const std::vector<AcGePoint2d>& points, bool closed = false);
    /// The same as an old-style 2-D polyline, and as a 3-D one.
    uint64_t feature2d(const std::string& code, const std::vector<AcGePoint2d>& points, bool closed = false);
    uint64_t feature3d(const std::string& code, const std::vector<AcGePoint3d>& points, bool closed = false);
    /// A measured survey point with its feature code in field 1.
    uint64_t point(const std::string& code, const AcGePoint3d& position);
    uint64_t line(const AcGePoint3d& from, const AcGePoint3d& to);
    uint64_t text(const std::string& value, const AcGePoint3d& position, double height = 1.0);
    /// A block reference, with a feature code when one is given.
    uint64_t insert(const std::string& block, const AcGePoint3d& position, const std::string& code = {});
    /// An entity by its own pairs, code and value on a line each, behind handle and owner; "\n" at the end.
    uint64_t entity(const std::string& kind, const std::string& pairs);

    /// What follows is put on this layer (added when it is new); "0" at first.
    TestDrawing& onLayer(const std::string& name);
    /// What follows lies in paper space, or in model space again.
    TestDrawing& inPaperSpace(bool paper = true);
    /// Starts a block: what follows is added to it, until `endBlock`.
    TestDrawing& beginBlock(const std::string& name, const AcGePoint3d& base = {});
    TestDrawing& endBlock();

    /// `flags`: 1 frozen, 4 locked. `color` negative: off.
    TestDrawing& layer(const std::string& name, int flags = 0, int color = 7,
                       const std::string& linetype = "Continuous");
    TestDrawing& style(const std::string& name, const std::string& font);
    TestDrawing& linetype(const std::string& name);
    TestDrawing& application(const std::string& name);
    /// A header variable by its pairs, for example ("$CLAYER", "  8\nROAD\n").
    TestDrawing& header(const std::string& variable, const std::string& pairs);

    /// The whole file.
    std::string dxf() const;

private:
    friend class TestSection;
    friend class TestAlignment;

    struct Entity
    {
        std::string text;
        const TestAlignment* alignment = nullptr; ///< written last, when all its sections are known
    };
    struct Block
    {
        std::string name;
        AcGePoint3d base;
        uint64_t record = 0;
        std::vector<Entity> entities;
    };

    uint64_t takeHandle() const { return m_next++; }
    TagWriter start(const std::string& kind, uint64_t handle);
    uint64_t finish(TagWriter& out, uint64_t handle, const std::string& code = {});
    std::string encoded(const std::string& utf8) const;
    void polylineHead(TagWriter& out, const std::string& kind, uint64_t handle, const std::string& marker, int flags);
    void vertex(TagWriter& out, const std::string& marker, const AcGePoint3d& at, int flags);
    void addEntity(std::string text, const TestAlignment* alignment = nullptr);
    std::string textOf(const Entity& entity) const;
    std::string textOf(const TestAlignment& alignment) const;
    static void writeSection(TagWriter& out, const TestSection& section, const TestDrawing& drawing);
    void writeTable(TagWriter& out, const std::string& name, const std::vector<std::string>& records) const;
    std::string record(const std::string& kind, const std::string& marker, const std::string& name,
                       const std::string& values) const;
    std::string blockRecord(const std::string& name, uint64_t handle) const;
    void writeTables(TagWriter& out) const;
    void writeBlock(TagWriter& out, const Block& block) const;
    void writeObjects(TagWriter& out) const;

    int m_version;
    std::string m_codePage;
    std::shared_ptr<const TextEncoding> m_encoding;
    mutable uint64_t m_next = 0x100;
    std::string m_layer = "0";
    bool m_paper = false;
    bool m_inBlock = false;
    int m_sectionCount = 0;
    std::list<TestAlignment> m_alignments;
    std::vector<Entity> m_entities;
    std::vector<Block> m_blocks;
    std::vector<std::string> m_layerNames{"0"};
    std::vector<std::string> m_layers;
    std::vector<std::string> m_styles;
    std::vector<std::string> m_linetypes;
    std::vector<std::string> m_applications;
    std::string m_header;
};

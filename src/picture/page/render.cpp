#include "picture/page/render.h"

#include "picture/page/pdf_outline.h"
#include "picture/paint/painter.h"
#include "picture/text/system_font.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <cmath>
#include <stdexcept>

namespace picture
{

namespace
{

constexpr double kInch = 25.4;
constexpr double kThinMillimetres = 0.13;
constexpr int kPdfDpi = 2400;
constexpr double kMostPixels = 30'000.0;

const Font& titleFont()
{
    static const std::unique_ptr<Font> font = findSystemFont("DejaVu Sans", false, false).font;
    return *font;
}

/// A line of text whose base line begins (or, for the right side, ends) at a place of the page.
void writeLine(Canvas& canvas, std::u16string_view text, Vertex at, double height, Rgb color, bool isRight = false)
{
    const double advance = extentOf(titleFont(), text).advance;
    const Map2d map{height, 0.0, 0.0, -height, isRight ? at.x - advance * height : at.x, at.y};
    std::vector<std::vector<Vertex>> outlines;
    double along = 0.0;
    for (std::u16string_view left = text; !left.empty();)
        if (const Glyph* glyph = shownGlyph(titleFont(), takeCharacter(left)))
        {
            for (const std::vector<Vertex>& path : glyph->paths)
            {
                std::vector<Vertex>& outline = outlines.emplace_back();
                for (const Vertex& vertex : path)
                    outline.push_back(map * Vertex{vertex.x + along, vertex.y});
            }
            along += glyph->advance;
        }
    canvas.area(outlines, color, false);
    canvas.searchable(text, map, advance);
}

void paintPage(DrawingLists& lists, Canvas& canvas, const Page& page, const Layout& layout, const PageOptions& options,
               Appearance appearance)
{
    appearance.background = options.background;
    appearance.monochrome = options.isMonochrome;
    if (page.message.empty())
    {
        const DisplayList& space = lists.modelSpace();
        Painter{lists, canvas, appearance, layout.shown, lists.notes()}.paint(space, layout.toPage);
    }
    if (!page.title.empty())
    {
        std::u16string title = page.title;
        if (layout.scale > 0.0 && page.message.empty())
            title += u" \u00B7 " + scaleText(layout.scale);
        writeLine(canvas, title, {layout.room.minX, layout.room.minY - layout.titleHeight}, layout.titleHeight,
                  inkOn(options.background));
    }
    if (!page.message.empty())
        writeLine(canvas, page.message, {layout.room.minX, layout.room.minY + 3 * layout.titleHeight},
                  layout.titleHeight, inkOn(options.background));
    if (layout.isCut)
        lists.notes().texts.insert("at this scale the drawing is larger than the paper: it is cut");
}

double dpiOf(const PageOptions& options, double usual)
{
    return options.dpi > 0.0 ? options.dpi : usual;
}

Layout layOutPixels(const Page& page, const PageOptions& options, double usualDpi)
{
    Layout layout = layOut(page, options, options.paper ? dpiOf(options, usualDpi) / kInch : 0.0);
    layout.width = std::max(1.0, std::round(layout.width));
    layout.height = std::max(1.0, std::round(layout.height));
    if (layout.width > kMostPixels || layout.height > kMostPixels)
        throw std::runtime_error("a picture of more than 30,000 pixels on a side cannot be made");
    return layout;
}

/// What pictures of pixels and of the same units look like.
Appearance pixelAppearance(const Layout& layout)
{
    Appearance appearance;
    appearance.unitsPerMillimetre = layout.unitsPerMillimetre > 0.0 ? layout.unitsPerMillimetre : 96.0 / kInch;
    appearance.thinLine = std::max(1.0, kThinMillimetres * layout.unitsPerMillimetre);
    return appearance;
}

QColor groundOf(const PageOptions& options)
{
    return options.isTransparent ? QColor{0, 0, 0, 0} : QColor::fromRgb(options.background);
}

std::string bytesOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

} // namespace

std::string renderPng(DrawingLists& lists, const Page& page, const PageOptions& options)
{
    const Layout layout = layOutPixels(page, options, 150.0);
    QImage image{static_cast<int>(layout.width), static_cast<int>(layout.height), QImage::Format_ARGB32_Premultiplied};
    if (image.isNull())
        throw std::runtime_error("there is not enough memory for a picture of this size");
    image.fill(groundOf(options));
    if (options.paper)
        image.setDotsPerMeterX(static_cast<int>(layout.unitsPerMillimetre * 1000.0));
    {
        Canvas canvas{image};
        Appearance appearance = pixelAppearance(layout);
        appearance.thinLine = appearance.thinLine > 1.0 ? appearance.thinLine : 0.0;
        paintPage(lists, canvas, page, layout, options, appearance);
    }
    QByteArray bytes;
    QBuffer buffer{&bytes};
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG"))
        throw std::runtime_error("the picture could not be encoded");
    return bytesOf(bytes);
}

std::string renderSvg(DrawingLists& lists, const Page& page, const PageOptions& options)
{
    const Layout layout = layOutPixels(page, options, 96.0);
    QByteArray bytes;
    QBuffer buffer{&bytes};
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(static_cast<int>(dpiOf(options, 96.0)));
    generator.setSize({static_cast<int>(layout.width), static_cast<int>(layout.height)});
    generator.setViewBox(QRectF{0.0, 0.0, layout.width, layout.height});
    generator.setTitle(QString::fromStdU16String(page.title));
    generator.setDescription({});
    {
        QPainter painter{&generator};
        if (!options.isTransparent)
            painter.fillRect(QRectF{0.0, 0.0, layout.width, layout.height}, groundOf(options));
        Canvas canvas{painter, Medium::kVectors};
        Appearance appearance = pixelAppearance(layout);
        appearance.tolerance = 0.003;
        appearance.gap = 0.002;
        paintPage(lists, canvas, page, layout, options, appearance);
    }
    return bytesOf(bytes);
}

namespace
{

/// The list of contents: entries in columns over as many pages as they need.
class Contents
{
public:
    Contents(const std::vector<Page>& pages, const PageOptions& options, double unit)
        : m_pages{pages}, m_unit{unit}, m_width{options.paper->width}, m_height{options.paper->height}
    {
        m_rows = std::max<size_t>(1, static_cast<size_t>((m_height - 2 * kMargin - kHeading) / kRow));
        m_columns = std::max<size_t>(1, static_cast<size_t>((m_width - 2 * kMargin) / kColumn));
    }

    size_t pageCount() const { return (m_pages.size() + m_rows * m_columns - 1) / (m_rows * m_columns); }
    void paint(Canvas& canvas, size_t page, const std::u16string& heading, Rgb ink) const
    {
        const double columnWidth = (m_width - 2 * kMargin) / static_cast<double>(m_columns);
        writeLine(canvas, heading, place(kMargin, kMargin + 5.0), 4.0 * m_unit, ink);
        const size_t first = page * m_rows * m_columns;
        for (size_t i = first; i < std::min(m_pages.size(), first + m_rows * m_columns); ++i)
        {
            const size_t at = i - first;
            const size_t column = at / m_rows;
            const double x = kMargin + static_cast<double>(column) * columnWidth;
            const double y = kMargin + kHeading + static_cast<double>(at % m_rows) * kRow;
            writeLine(canvas, m_pages[i].entry, place(x, y), kLetter * m_unit, ink);
            writeLine(canvas, numberText(i + pageCount() + 1), place(x + columnWidth - kGap, y), kLetter * m_unit, ink,
                      true);
        }
    }

    static std::u16string numberText(size_t number)
    {
        return QString::number(static_cast<qulonglong>(number)).toStdU16String();
    }

private:
    static constexpr double kMargin = 12.0; // millimetres, all of these
    static constexpr double kHeading = 16.0;
    static constexpr double kRow = 6.0;
    static constexpr double kColumn = 60.0;
    static constexpr double kGap = 8.0;
    static constexpr double kLetter = 2.5;

    Vertex place(double x, double y) const { return {x * m_unit, y * m_unit}; }

    const std::vector<Page>& m_pages;
    double m_unit;
    double m_width;
    double m_height;
    size_t m_rows = 1;
    size_t m_columns = 1;
};

/// The sheets of a document, painted one after the other; answers the outline that leads to them.
std::vector<OutlineEntry> paintDocument(QPagedPaintDevice& device, DrawingLists& lists, const std::vector<Page>& pages,
                                        const PageOptions& options, const std::u16string& heading)
{
    QPainter painter{&device};
    const double unit = device.logicalDpiX() / kInch;
    std::vector<OutlineEntry> outline;
    Canvas canvas{painter, Medium::kVectors};
    canvas.setSearchable(true);
    Appearance appearance;
    appearance.unitsPerMillimetre = unit;
    appearance.thinLine = kThinMillimetres * unit;
    appearance.speck = kThinMillimetres * unit;
    appearance.tolerance = 1.0;
    appearance.gap = 2.0;
    canvas.setRounded(true);
    const Contents contents{pages, options, unit};
    const size_t before = pages.size() > 1 ? contents.pageCount() : 0;
    const auto beginPage = [&](size_t number)
    {
        canvas.flush();
        if (number > 0)
            device.newPage();
        if (!options.isTransparent && options.background != 0xFFFFFF)
            painter.fillRect(QRectF{0, 0, options.paper->width * unit, options.paper->height * unit},
                             groundOf(options));
    };
    for (size_t i = 0; i < before; ++i)
    {
        beginPage(i);
        contents.paint(canvas, i, heading, inkOn(options.background));
    }
    for (size_t i = 0; i < pages.size(); ++i)
    {
        beginPage(before + i);
        const Layout layout = layOut(pages[i], options, unit);
        paintPage(lists, canvas, pages[i], layout, options, appearance);
        if (before > 0)
        {
            writeLine(canvas, Contents::numberText(before + i + 1), {layout.room.maxX, layout.height - 4.0 * unit},
                      2.5 * unit, inkOn(options.background), true);
            outline.push_back({pages[i].entry, before + i});
        }
    }
    canvas.flush();
    return outline;
}

} // namespace

void paintSheets(QPagedPaintDevice& device, DrawingLists& lists, const std::vector<Page>& pages,
                 const PageOptions& options, const std::u16string& heading)
{
    paintDocument(device, lists, pages, options, heading);
}

std::string renderPdf(DrawingLists& lists, const std::vector<Page>& pages, const PageOptions& options,
                      const std::u16string& heading)
{
    QByteArray bytes;
    QBuffer buffer{&bytes};
    buffer.open(QIODevice::WriteOnly);
    std::vector<OutlineEntry> outline;
    {
        QPdfWriter writer{&buffer};
        writer.setResolution(kPdfDpi);
        writer.setPageSize(QPageSize{
            QSizeF{options.paper->width, options.paper->height}, QPageSize::Millimeter, {}, QPageSize::ExactMatch});
        writer.setPageMargins({0, 0, 0, 0});
        writer.setTitle(QString::fromStdU16String(heading));
        writer.setCreator(QStringLiteral("Veloxa"));
        outline = paintDocument(writer, lists, pages, options, heading);
    }
    return withOutline(bytesOf(bytes), outline);
}

} // namespace picture

#include "picture/paint/image_store.h"

#include <QImageReader>

#include <list>
#include <mutex>

namespace picture
{

namespace
{

constexpr size_t kMostKept = 8;
constexpr int kLongestSide = 4096; ///< pixels

QImage readImage(const std::string& file)
{
    QImageReader reader{QString::fromStdString(file)};
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (std::max(size.width(), size.height()) > kLongestSide)
        reader.setScaledSize(size.scaled(kLongestSide, kLongestSide, Qt::KeepAspectRatio));
    return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

QImage storedImage(const std::string& file)
{
    static std::mutex mutex;
    static std::list<std::pair<std::string, QImage>> kept;
    const std::lock_guard lock{mutex};
    for (auto each = kept.begin(); each != kept.end(); ++each)
        if (each->first == file)
        {
            kept.splice(kept.begin(), kept, each);
            return kept.front().second;
        }
    kept.emplace_front(file, readImage(file));
    if (kept.size() > kMostKept)
        kept.pop_back();
    return kept.front().second;
}

} // namespace picture

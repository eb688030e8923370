#include "desktop/panels/drawing_search.h"

#include "desktop/language/qt_text.h"
#include "desktop/panels/survey_code.h"

namespace desktop
{

namespace
{

QString withoutAccents(const QString& text)
{
    QString plain;
    for (const QChar c : text.normalized(QString::NormalizationForm_D))
        if (c.category() != QChar::Mark_NonSpacing)
            plain += c == QChar{u'đ'} ? QChar{'d'} : c;
    return plain;
}

/// Texts as they are compared: in lower case and composed, or without accents.
class Words
{
public:
    explicit Words(const QString& words)
    {
        m_words = whole(words);
        m_isPlain = withoutAccents(m_words) == m_words;
    }
    bool isEmpty() const { return m_words.isEmpty(); }
    bool areIn(const QString& text) const
    {
        return m_isPlain ? withoutAccents(whole(text)).contains(m_words) : whole(text).contains(m_words);
    }

private:
    static QString whole(const QString& text)
    {
        return text.toLower().normalized(QString::NormalizationForm_C).simplified();
    }

    QString m_words;
    bool m_isPlain = false;
};

/// What an item shows as text, the texts of its block's own list left out.
QString textOf(const picture::DisplayList& list, const picture::DisplayList::Item& item)
{
    QString text;
    for (const picture::Primitive& primitive : list.primitives(item))
        if (primitive.kind == picture::Primitive::kText)
            text += (text.isEmpty() ? "" : " ") + toQString(list.letters(list.text(primitive)));
    return text;
}

} // namespace

std::vector<Match> searchDrawing(Scene& scene, const ObjectRecord* space, const QString& words)
{
    std::vector<Match> matches;
    const Words sought{words};
    if (sought.isEmpty())
        return matches;
    const picture::DisplayList& list = scene.space(space);
    for (uint32_t i = 0; i < list.items().size(); ++i)
    {
        const picture::DisplayList::Item& item = list.items()[i];
        const AcDbObjectId id{item.entity};
        if (id.isErased())
            continue;
        QString text = textOf(list, item);
        if (const std::u16string code = surveyCodeOf(id); !code.empty())
            text += (text.isEmpty() ? "" : " · ") + toQString(code);
        if (!text.isEmpty() && sought.areIn(text))
            matches.push_back({id, text.simplified(), list.box(i)});
    }
    return matches;
}

} // namespace desktop

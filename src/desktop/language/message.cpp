#include "desktop/language/message.h"

#include "desktop/language/vietnamese.h"

#include <QHash>

namespace desktop
{

namespace
{

Language chosen = Language::kVietnamese;

const QHash<QByteArray, QString>& vietnamese()
{
    static const QHash<QByteArray, QString> texts = []
    {
        QHash<QByteArray, QString> table;
        for (const Translation& each : vietnameseTexts())
            table.insert(each.english, QString::fromUtf8(each.vietnamese));
        return table;
    }();
    return texts;
}

} // namespace

QString msg(const char* english)
{
    if (chosen == Language::kVietnamese)
        if (const auto found = vietnamese().constFind(QByteArray::fromRawData(english, qstrlen(english)));
            found != vietnamese().constEnd())
            return *found;
    return QString::fromUtf8(english);
}

void chooseLanguage(Language language)
{
    chosen = language;
}

Language chosenLanguage()
{
    return chosen;
}

Language languageOfEnvironment()
{
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const QByteArray value = qgetenv(name); !value.isEmpty())
            return value.startsWith("vi") || value == "C" || value == "POSIX" || value.startsWith("C.")
                       ? Language::kVietnamese
                       : Language::kEnglish;
    return Language::kVietnamese;
}

} // namespace desktop

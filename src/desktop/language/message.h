#pragma once

#include <QString>

namespace desktop
{

enum class Language
{
    kVietnamese,
    kEnglish
};

/// What the user reads for a text of the program, in the language chosen; places (%1 ...) are still open. The English
/// text is the key. One without a translation stays English.
QString msg(const char* english);

/// Chooses the language of what is asked for from now on.
void chooseLanguage(Language language);
Language chosenLanguage();

/// The language that the environment asks for: $LC_ALL, $LC_MESSAGES, $LANG; Vietnamese where they say nothing.
Language languageOfEnvironment();

} // namespace desktop

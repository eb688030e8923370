#pragma once

#include "settings/library_lines.h"

#include <string>
#include <vector>

struct DatabaseCS;

namespace console
{

/// The general settings as the user's folder has them, put aside while a drawing's own are in force.
class StoredSettings
{
public:
    explicit StoredSettings(const DatabaseCS& settings);

    /// Puts them back. A new user, without a settings file, keeps the drawing options that were confirmed meanwhile.
    void restore(DatabaseCS& settings) const;

    /// A sentence on the numbers of a drawing that differ from these; empty when none does, or for a new user.
    std::string differencesFrom(const GeneralTexts& kept) const;

private:
    double m_backward;
    double m_forward;
    double m_textHeight;
    double m_deltaY;
    std::vector<unsigned> m_flags;
    std::vector<std::u16string> m_layers;
};

} // namespace console

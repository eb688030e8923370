#pragma once

#include "desktop/sections/scanned_sections.h"

#include <QString>

#include <optional>
#include <vector>

namespace host
{
class DamageLog;
}

namespace desktop
{

/// Something about the drawing that stands in the way of drawing on its sections, or looks like a mistake.
struct FoundFault
{
    QString text;
    std::optional<SectionPlace> section;
    std::optional<double> offset; ///< on the section
    AcDbObjectId entity;          ///< when it is about one
};

/// What the command line's check tells of a drawing without a library, most important first; then the entities that
/// are damaged, and what is not shown as the drawing has it.
std::vector<FoundFault> faultsOf(const ScannedSections& sections, const host::DamageLog& damage, Scene& scene);

} // namespace desktop

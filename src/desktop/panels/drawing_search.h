#pragma once

#include "desktop/view/scene.h"

#include <QString>

#include <vector>

namespace desktop
{

/// An entity that holds what was looked for.
struct Match
{
    AcDbObjectId entity;
    QString text; ///< all that the entity says, on one line
    Box2d box;    ///< around it, drawing units; empty where it draws nothing
};

/// The entities of a space (null: model space) whose texts, as they are seen, or feature code contain `words`, in
/// drawing order. Case does not count; accents only when `words` has some.
std::vector<Match> searchDrawing(Scene& scene, const ObjectRecord* space, const QString& words);

} // namespace desktop

#pragma once

#include "desktop/panels/section_panel.h"
#include "desktop/sections/road_axis.h"

#include <optional>
#include <vector>

namespace desktop
{

class DocumentTab;
class Workspace;

/// What is done with the sections of the drawing in front: the panel that lists them, the split view, going from one to
/// the next, what is hidden of what was drawn on them, and what the cursor points at.
class SectionActions
{
public:
    SectionActions(Workspace& workspace, SectionPanel& panel);

    /// The section at hand, named for the user.
    std::function<void(const QString& name)> onSection;
    /// An entity is shown as if it was clicked.
    std::function<void(AcDbObjectId entity)> onEntity;

    /// Another drawing is in front, or the panel came up: shows the sections, found anew where the drawing changed.
    void refresh();
    void go(const SectionPlace& place);
    /// To the next section, or the one before.
    void step(long by);
    void toggleSplit();
    /// Shows the drawing as it was before anything was drawn, or as it is; on the screen only.
    void toggleDrawn();
    /// Takes back what was drawn on the sections of the alignment at hand (of all, when there is none).
    void eraseDrawn();

    /// What the cursor points at in the plan, or in the picture of a section: station and offset, or offset and ground.
    QString whatIsAt(DocumentTab& tab, const picture::Vertex& place, bool inSectionView);

    /// What a drawing unit in the picture of the section at hand stands for.
    static double unitOf(DocumentTab& tab);

private:
    DocumentTab* front() const;
    void hideDrawn(DocumentTab& tab) const;
    void showFault(const FoundFault& fault);
    QString textOnSection(DocumentTab& tab, const SectionPlace& section, const picture::Vertex& place);

    Workspace& m_workspace;
    SectionPanel& m_panel;
};

} // namespace desktop

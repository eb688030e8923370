#pragma once

#include "desktop/render/render_options.h"

#include <QDialog>

#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace desktop
{

/// Asks what pictures are to be made of a drawing: of all of it, of what is seen, or of its cross-sections; on which
/// paper, at which scale, of which kind.
class PictureDialog : public QDialog
{
public:
    struct Drawing
    {
        std::string seen;                    ///< "X1,Y1,X2,Y2" of what is seen
        std::vector<std::string> alignments; ///< their names
        std::string alignment;               ///< the one at hand
    };

    /// `forPrinter`: paper and kind are the printer's business.
    PictureDialog(QWidget* parent, const Drawing& drawing, bool forPrinter);

    /// As the user has chosen; UsageError names what makes no sense. The output is still open.
    RenderArguments arguments() const;
    PictureKind kind() const;

protected:
    void accept() override;

private:
    QComboBox* addChoice(QFormLayout& form, const char* name, const QString& title, const QStringList& choices);
    void showWhatMatters();

    Drawing m_drawing;
    bool m_isForPrinter;
    QComboBox* m_what;
    QComboBox* m_alignment;
    QLineEdit* m_sections;
    QComboBox* m_kind;
    QComboBox* m_paper;
    QComboBox* m_scale;
    QComboBox* m_background;
    QCheckBox* m_monochrome;
    QSpinBox* m_dpi;
    QLabel* m_complaint;
    QFormLayout* m_form;
};

} // namespace desktop

#include "desktop/render/picture_dialog.h"

#include "desktop/language/message.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace desktop
{

namespace
{

enum What
{
    kAll,
    kSeen,
    kSections
};

constexpr std::array<const char*, 10> kPapers{"A4", "A4p", "A3", "A3p", "A2", "A2p", "A1", "A1p", "A0", "A0p"};
constexpr std::array<const char*, 3> kBackgrounds{"white", "black", "transparent"};

QStringList paperNames()
{
    QStringList names;
    for (const QString paper : kPapers)
        names << (paper.endsWith('p') ? msg("%1 upright").arg(paper.chopped(1)) : paper);
    return names;
}

} // namespace

PictureDialog::PictureDialog(QWidget* parent, const Drawing& drawing, bool forPrinter)
    : QDialog{parent}, m_drawing{drawing}, m_isForPrinter{forPrinter}, m_sections{new QLineEdit{"all"}},
      m_monochrome{new QCheckBox{msg("Black and white")}}, m_dpi{new QSpinBox},
      m_complaint{new QLabel}, m_form{new QFormLayout{this}}
{
    setObjectName("pictures");
    setWindowTitle(forPrinter ? msg("Print") : msg("Export pictures"));
    m_what = addChoice(*m_form, "what", msg("What"), {msg("The whole drawing"), msg("What is seen now")});
    if (!drawing.alignments.empty())
        m_what->addItem(msg("Cross-sections, a page each"));
    QStringList alignments;
    for (const std::string& name : drawing.alignments)
        alignments << QString::fromStdString(name);
    m_alignment = addChoice(*m_form, "alignment", msg("Alignment"), alignments);
    m_alignment->setCurrentText(QString::fromStdString(drawing.alignment));
    m_sections->setObjectName("sectionList");
    m_form->addRow(msg("Sections"), m_sections);
    m_sections->setToolTip(msg("all, or positions such as 1,3-5"));
    m_kind = addChoice(*m_form, "kind", msg("Kind of file"), {"PDF", "PNG", "SVG"});
    m_paper = addChoice(*m_form, "paper", msg("Paper"), paperNames());
    m_scale = addChoice(*m_form, "scale", msg("Scale"),
                        {msg("as large as fits"), "1:100", "1:200", "1:500", "1:1000", "1:2000", "1:5000"});
    m_scale->setEditable(true);
    m_background = addChoice(*m_form, "background", msg("Background"), {msg("white"), msg("black"), msg("none")});
    m_dpi->setRange(10, 2400);
    m_dpi->setValue(150);
    m_form->addRow(msg("Dots an inch"), m_dpi);
    m_form->addRow(QString{}, m_monochrome);
    m_complaint->setWordWrap(true);
    m_complaint->setTextFormat(Qt::PlainText);
    m_form->addRow(m_complaint);
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(forPrinter ? msg("Print…") : msg("Export…"), QDialogButtonBox::AcceptRole)
        ->setObjectName("acceptPictures");
    buttons->addButton(msg("Cancel"), QDialogButtonBox::RejectRole);
    m_form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &PictureDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &PictureDialog::reject);
    for (QComboBox* choice : {m_what, m_kind})
        connect(choice, &QComboBox::currentIndexChanged, this, [this] { showWhatMatters(); });
    showWhatMatters();
}

QComboBox* PictureDialog::addChoice(QFormLayout& form, const char* name, const QString& title,
                                    const QStringList& choices)
{
    auto* choice = new QComboBox;
    choice->setObjectName(name);
    choice->addItems(choices);
    form.addRow(title, choice);
    return choice;
}

void PictureDialog::showWhatMatters()
{
    const bool isSections = m_what->currentIndex() == kSections;
    m_form->setRowVisible(m_alignment, isSections);
    m_form->setRowVisible(m_sections, isSections);
    m_form->setRowVisible(m_kind, !m_isForPrinter);
    m_form->setRowVisible(m_paper, !m_isForPrinter);
    m_form->setRowVisible(m_background, !m_isForPrinter);
    m_form->setRowVisible(m_dpi, !m_isForPrinter && kind() == PictureKind::kPng);
    m_form->setRowVisible(m_complaint, !m_complaint->text().isEmpty());
}

PictureKind PictureDialog::kind() const
{
    constexpr std::array kKinds{PictureKind::kPdf, PictureKind::kPng, PictureKind::kSvg};
    return m_isForPrinter ? PictureKind::kPdf : kKinds.at(static_cast<size_t>(m_kind->currentIndex()));
}

RenderArguments PictureDialog::arguments() const
{
    RenderArguments arguments;
    if (m_what->currentIndex() == kSeen)
        arguments.window = m_drawing.seen;
    if (m_what->currentIndex() == kSections)
    {
        arguments.alignment = m_alignment->currentText().toStdString();
        arguments.sections = m_sections->text().simplified().toStdString();
    }
    if (m_scale->currentIndex() != 0 || m_scale->currentText() != m_scale->itemText(0))
        arguments.scale = m_scale->currentText().simplified().toStdString();
    arguments.monochrome = m_monochrome->isChecked();
    if (m_isForPrinter)
        return arguments;
    arguments.paper = kPapers.at(static_cast<size_t>(m_paper->currentIndex()));
    arguments.background = kBackgrounds.at(static_cast<size_t>(m_background->currentIndex()));
    if (kind() == PictureKind::kPng)
        arguments.dpi = m_dpi->value();
    return arguments;
}

/// What makes no sense is told here, and the dialog stays.
void PictureDialog::accept()
{
    try
    {
        (void)pageOptions(arguments(), kind());
        QDialog::accept();
    }
    catch (const UsageError& error)
    {
        m_complaint->setText(QString::fromUtf8(error.what()));
        showWhatMatters();
    }
}

} // namespace desktop

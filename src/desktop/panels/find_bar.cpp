#include "desktop/panels/find_bar.h"

#include "desktop/language/message.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace desktop
{

FindBar::FindBar() : m_words{new QLineEdit}, m_count{new QLabel}
{
    setObjectName("findBar");
    auto* row = new QHBoxLayout{this};
    row->setContentsMargins(6, 3, 6, 3);
    m_words->setObjectName("findWords");
    m_words->setPlaceholderText(msg("Text or feature code"));
    m_words->setClearButtonEnabled(true);
    m_words->installEventFilter(this);
    m_count->setObjectName("findCount");
    m_count->setTextFormat(Qt::PlainText);
    row->addWidget(new QLabel{msg("Find:")});
    row->addWidget(m_words, 1);
    row->addWidget(m_count, 2);
    const auto addButton = [this, row](const QString& text, const QString& tip, const std::function<void()>& act)
    {
        auto* button = new QToolButton;
        button->setText(text);
        button->setToolTip(tip);
        button->setAutoRaise(true);
        connect(button, &QToolButton::clicked, this, act);
        row->addWidget(button);
    };
    addButton("◀", msg("Previous (Shift+Enter)"), [this] { step(-1); });
    addButton("▶", msg("Next (Enter)"), [this] { step(1); });
    addButton("✕", msg("Close (Esc)"), [this] { stop(); });
    connect(m_words, &QLineEdit::textChanged, this, [this] { forget(); });
    hide();
}

void FindBar::start(const QString& words)
{
    setVisible(true);
    if (!words.isEmpty())
        m_words->setText(words);
    m_words->setFocus();
    m_words->selectAll();
}

void FindBar::stop()
{
    hide();
    if (onClosed)
        onClosed();
}

void FindBar::forget()
{
    m_isFound = false;
    m_matches.clear();
    m_count->clear();
}

void FindBar::find()
{
    m_matches = search ? search(m_words->text()) : std::vector<Match>{};
    m_at = 0;
    m_isFound = true;
}

void FindBar::step(int by)
{
    if (m_words->text().trimmed().isEmpty())
        return;
    if (!m_isFound)
    {
        find();
        by = 0;
    }
    if (!m_matches.empty())
    {
        const auto count = static_cast<long>(m_matches.size());
        m_at = static_cast<size_t>((static_cast<long>(m_at) + by + count) % count);
    }
    showCurrent();
}

void FindBar::showCurrent()
{
    if (m_matches.empty())
        return m_count->setText(msg("Not found"));
    const Match& match = m_matches[m_at];
    m_count->setText(msg("%1 of %2").arg(m_at + 1).arg(m_matches.size()) + " · " + match.text);
    if (show)
        show(match);
}

bool FindBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
        step(key->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
    else if (key->key() == Qt::Key_Escape)
        stop();
    else
        return QWidget::eventFilter(watched, event);
    return true;
}

} // namespace desktop

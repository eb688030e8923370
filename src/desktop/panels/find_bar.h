#pragma once

#include "desktop/panels/drawing_search.h"

#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QLineEdit;

namespace desktop
{

/// The line in which the user says what to look for in the drawing, and steps through what was found.
class FindBar : public QWidget
{
public:
    FindBar();

    /// Looks for words; called when what is found may have changed.
    std::function<std::vector<Match>(const QString& words)> search;
    /// Shows one of what was found.
    std::function<void(const Match& match)> show;
    std::function<void()> onClosed;

    /// Comes up, ready for typing.
    void start(const QString& words = {});
    void step(int by);
    /// The drawing changed or is another one.
    void forget();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void find();
    void showCurrent();
    void stop();

    QLineEdit* m_words;
    QLabel* m_count;
    std::vector<Match> m_matches;
    size_t m_at = 0;
    bool m_isFound = false; ///< `m_matches` are those of the words
};

} // namespace desktop

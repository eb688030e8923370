#include "desktop/command/interpreter.h"

#include "desktop/language/message.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace desktop
{

namespace
{

std::optional<picture::Vertex> pointOf(const QString& word)
{
    const QStringList parts = word.split(',');
    if (parts.size() != 2 && parts.size() != 3)
        return std::nullopt;
    bool isX = false;
    bool isY = false;
    const picture::Vertex point{parts[0].toDouble(&isX), parts[1].toDouble(&isY)};
    return isX && isY && std::isfinite(point.x) && std::isfinite(point.y) ? std::optional{point} : std::nullopt;
}

/// A name without the marks that may stand before it.
QString bare(const QString& word)
{
    qsizetype begin = 0;
    while (begin < word.size() && QString{"_.'"}.contains(word[begin]))
        ++begin;
    return word.mid(begin).toUpper();
}

} // namespace

void Interpreter::add(UserCommand command)
{
    m_commands.push_back(std::move(command));
}

const UserCommand* Interpreter::find(const QString& name) const
{
    const QString sought = bare(name);
    const auto isIt = [&](const UserCommand& each) { return each.name == sought || each.aliases.contains(sought); };
    const auto found = std::find_if(m_commands.begin(), m_commands.end(), isIt);
    return found != m_commands.end() ? &*found : nullptr;
}

QStringList Interpreter::completions(const QString& begin) const
{
    QStringList names;
    if (!begin.isEmpty() && !isAsking())
        for (const UserCommand& each : m_commands)
            if (each.name.startsWith(bare(begin)))
                names << each.name;
    names.sort();
    return names;
}

void Interpreter::submit(const QString& line)
{
    QString rest = line.trimmed();
    do
    {
        const qsizetype end = m_isWholeLine ? -1 : rest.indexOf(' ');
        const QString word = end < 0 ? rest : rest.left(end);
        rest = end < 0 ? QString{} : rest.mid(end + 1).trimmed();
        if (isAsking())
            answer(word);
        else
            start(word);
    } while (!rest.isEmpty());
}

void Interpreter::start(const QString& name)
{
    const QString wanted = name.isEmpty() ? m_last : name;
    if (wanted.isEmpty())
        return;
    const UserCommand* command = find(wanted);
    if (command == nullptr)
        return echo(msg("There is no command %1. F1 lists them.").arg(wanted));
    m_last = command->name;
    echo(msg("Command: %1").arg(command->name));
    command->run();
}

void Interpreter::answer(const QString& word)
{
    echo(m_prompt + " " + word);
    const auto onAnswer = m_onAnswer;
    endQuestion();
    onAnswer(word);
}

bool Interpreter::takePoint(const picture::Vertex& point)
{
    if (!m_onPoint)
        return false;
    echo(m_prompt + " " + QString::number(point.x, 'f', 3) + "," + QString::number(point.y, 'f', 3));
    const auto onPoint = m_onPoint;
    endQuestion();
    onPoint(point);
    return true;
}

bool Interpreter::cancel()
{
    if (!isAsking())
        return false;
    endQuestion();
    echo(msg("*Cancelled*"));
    return true;
}

void Interpreter::ask(const QString& prompt, std::function<void(const QString&)> onAnswer, bool isWholeLine)
{
    m_prompt = prompt;
    m_isWholeLine = isWholeLine;
    m_onAnswer = std::move(onAnswer);
    m_onPoint = nullptr;
    if (onPromptChanged)
        onPromptChanged();
}

void Interpreter::askPoint(const QString& prompt, std::function<void(const picture::Vertex&)> onPoint,
                           std::function<void(const QString&)> onWord)
{
    ask(prompt,
        [this, prompt, onPoint, onWord](const QString& word)
        {
            if (const std::optional<picture::Vertex> point = pointOf(word))
                onPoint(*point);
            else if (onWord && !word.isEmpty())
                onWord(word);
            else if (!word.isEmpty())
            {
                echo(msg("%1 is no place such as 12.5,30").arg(word));
                askPoint(prompt, onPoint, onWord);
            }
        });
    m_onPoint = std::move(onPoint);
}

void Interpreter::endQuestion()
{
    m_prompt.clear();
    m_isWholeLine = false;
    m_onAnswer = nullptr;
    m_onPoint = nullptr;
    if (onPromptChanged)
        onPromptChanged();
}

void Interpreter::echo(const QString& text) const
{
    if (onEcho)
        onEcho(text);
}

} // namespace desktop

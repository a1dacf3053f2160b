#include "script.h"

#include "device.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QStringList>
#include <QTimer>

#include <utility>

namespace {

const int LongPressRepeats = 12;

const std::pair<const char *, KeyMove> parts[] = {
    {"press", KeyMove::Press},
    {"repeat", KeyMove::Repeat},
    {"release", KeyMove::Release},
    {"forget", KeyMove::Forget},
};

/// Takes over what stands after the name of a key. Returns false if that means nothing.
bool takeDetail(ScriptStep &step, const QString &detail)
{
    if (detail == QLatin1String("long"))
        step.repeats = LongPressRepeats;
    for (const auto &[name, move] : parts) {
        if (detail == QLatin1String(name))
            step.part = move;
    }
    return step.repeats > 0 || step.part;
}

ScriptStep parseStep(const QString &word, QString *error)
{
    const QString name = word.section(QLatin1Char(':'), 0, 0);
    const QString detail = word.section(QLatin1Char(':'), 1);
    ScriptStep step;

    if (name.compare(QLatin1String("wait"), Qt::CaseInsensitive) == 0) {
        bool isNumber = false;
        step.milliseconds = detail.toInt(&isNumber);
        if (!isNumber || step.milliseconds < 0 || step.milliseconds > LongestScriptWait)
            *error = QStringLiteral("\"%1\" is no wait. Write wait:N, with 0 to %2 milliseconds.")
                         .arg(word).arg(LongestScriptWait);
        return step;
    }

    step.key = keyNamed(name);
    if (step.key == Qt::Key_unknown)
        *error = QStringLiteral("There is no key \"%1\". Keys are %2; and there is wait:N.").arg(name, keyNames());
    else if (word.contains(QLatin1Char(':')) && !takeDetail(step, detail))
        *error = QStringLiteral("\"%1\" is no way to press a key. Write %2, or %2:long to hold it.").arg(word, name);
    return step;
}

/// Adds the steps in \a line to \a script, up to what is wrong.
void parseLine(const QString &line, Script &script, QString *error)
{
    const QStringList words = line.section(QStringLiteral("//"), 0, 0).simplified().split(QLatin1Char(' '));
    for (const QString &word : words) {
        if (word.isEmpty() || !error->isEmpty())
            continue;
        script.push_back(parseStep(word, error));
    }
}

void move(Device &device, int key, KeyMove move)
{
    switch (move) {
    case KeyMove::Press: return device.press(key);
    case KeyMove::Repeat: return device.repeat(key);
    case KeyMove::Release: return device.release(key);
    case KeyMove::Forget: return device.forget(key);
    }
}

}

Script parseScript(const QString &text, QString *error)
{
    error->clear();
    Script script;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines)
        parseLine(line, script, error);
    return script;
}

Script readScript(const QString &name, QString *error)
{
    error->clear();
    Script script;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("\"%1\" cannot be read: %2.").arg(name, file.errorString());
        return script;
    }
    for (int number = 1; !file.atEnd() && error->isEmpty(); ++number) {
        parseLine(QString::fromUtf8(file.readLine()), script, error);
        if (!error->isEmpty())
            *error = QStringLiteral("Line %1 of \"%2\": %3").arg(number).arg(name, *error);
    }
    return script;
}

void play(const Script &script, Device &device, int pause)
{
    for (const ScriptStep &step : script) {
        if (step.key == 0) {
            runFor(step.milliseconds);
            continue;
        }
        const int key = deviceKey(step.key, device.keyMode());
        if (step.part) {
            move(device, key, *step.part);
            runFor(pause);
            continue;
        }
        device.press(key);
        runFor(pause);
        for (int i = 0; i < step.repeats; ++i) {
            device.repeat(key);
            runFor(pause);
        }
        device.release(key);
        runFor(pause);
    }
}

void runFor(int milliseconds)
{
    if (milliseconds > 0) {
        QEventLoop loop;
        QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
    }
    QCoreApplication::processEvents();
    // What a screen deletes later would otherwise stay until all loops have been left.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

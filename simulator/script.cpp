#include "script.h"

#include "device.h"
#include "keys.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QStringList>
#include <QTimer>

namespace {

const int LongPressRepeats = 12;
const int LongestWait = 60000;

ScriptStep parseStep(const QString &word, QString *error)
{
    const QString name = word.section(QLatin1Char(':'), 0, 0);
    const QString detail = word.section(QLatin1Char(':'), 1);
    ScriptStep step;

    if (name.compare(QLatin1String("wait"), Qt::CaseInsensitive) == 0) {
        bool isNumber = false;
        step.milliseconds = detail.toInt(&isNumber);
        if (!isNumber || step.milliseconds < 0 || step.milliseconds > LongestWait)
            *error = QStringLiteral("\"%1\" is no wait. Write wait:N, with 0 to %2 milliseconds.")
                         .arg(word).arg(LongestWait);
        return step;
    }

    step.key = keyNamed(name);
    if (step.key == Qt::Key_unknown)
        *error = QStringLiteral("There is no key \"%1\". Keys are %2; and there is wait:N.").arg(name, keyNames());
    else if (detail == QLatin1String("long"))
        step.repeats = LongPressRepeats;
    else if (word.contains(QLatin1Char(':')))
        *error = QStringLiteral("\"%1\" is no way to press a key. Write %2, or %2:long to hold it.").arg(word, name);
    return step;
}

}

Script parseScript(const QString &text, QString *error)
{
    error->clear();
    Script script;
    const QStringList words = text.simplified().split(QLatin1Char(' '));
    for (const QString &word : words) {
        if (word.isEmpty())
            continue;
        script.push_back(parseStep(word, error));
        if (!error->isEmpty())
            break;
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

// A plugin of the toolkit that works a screen of README.md as a person would, inside the program as it was built. Ends
// the program with status 1 where something else comes about than README.md says. Loaded with
// QT_QPA_GENERIC_PLUGINS=screenprobe; SCREENPROBE_SCREEN says which screen it is: "screen", the first one, or the long
// list, of "names" or with "roles". SCREENPROBE_PICTURE names the PNG file that gets a picture of the screen.

#include "widgetlistview.h"

#include <QAbstractItemView>

#include <QApplication>
#include <QFile>
#include <QGenericPlugin>
#include <QHash>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

const int LookPeriod = 20;  // milliseconds
const int LongestWait = 30000;

// What the row that has the focus says, and the key to work once it does.
struct Step
{
    QString row;
    int key;
};

const QHash<QString, std::vector<Step>> stepsOnScreens = {
    {QStringLiteral("screen"),
     {{QStringLiteral("Music Low"), Qt::Key_6},
      {QStringLiteral("Music High"), Qt::Key_8},
      {QStringLiteral("Phone Low"), Qt::Key_4},
      {QStringLiteral("Phone High"), Qt::Key_2},
      {QStringLiteral("Music High"), Qt::Key_Escape}}},
    {QStringLiteral("names"),
     {{QStringLiteral("Contact 1"), Qt::Key_8},
      {QStringLiteral("Contact 2"), Qt::Key_2},
      {QStringLiteral("Contact 1"), Qt::Key_2},
      {QStringLiteral("Contact 1000"), Qt::Key_Escape}}},
    {QStringLiteral("roles"),
     {{QStringLiteral("Contact 1 Family"), Qt::Key_6},
      {QStringLiteral("Contact 1 Friends"), Qt::Key_2},
      {QStringLiteral("Contact 1000 Family"), Qt::Key_4},
      {QStringLiteral("Contact 1000 Friends"), Qt::Key_8},
      {QStringLiteral("Contact 1 Friends"), Qt::Key_Escape}}},
};

const char *const pictures[] = {"arrow_prev_focus", "arrow_next_focus", "arrow_prev_nor", "arrow_next_nor"};

QString focusedRow()
{
    QStringList texts;
    const QWidget *row = QApplication::focusWidget();
    if (const QAbstractItemView *rows = row ? row->findChild<QAbstractItemView *>() : nullptr) {
        const QModelIndex index = rows->currentIndex();
        texts += index.data(WidgetListView::TitleRole).toString();
        texts += index.data(WidgetListView::ValuesRole).toStringList().mid(
            index.data(WidgetListView::ValueIndexRole).toInt(), 1);
    } else if (row) {
        for (const QLabel *label : row->findChildren<QLabel *>()) {
            if (label->isVisible() && !label->text().isEmpty())
                texts += label->text();
        }
    }
    return texts.join(QLatin1Char(' '));
}

void work(int key)
{
    for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(QGuiApplication::focusWindow(), &event);
    }
}

[[noreturn]] void fail(const QString &what)
{
    std::fprintf(stderr, "screenprobe: %s\n", qPrintable(what));
    std::_Exit(1);
}

class ScreenProbe : public QObject
{
public:
    ScreenProbe()
        : m_steps(stepsOnScreens.value(qEnvironmentVariable("SCREENPROBE_SCREEN")))
    {
        if (m_steps.empty())
            fail(QStringLiteral("There is no such screen."));
        QObject::connect(&m_timer, &QTimer::timeout, this, &ScreenProbe::look);
        m_timer.start(LookPeriod);
    }

private:
    const std::vector<Step> m_steps;
    QTimer m_timer;
    std::size_t m_step = 0;
    int m_looks = 0;

    void look()
    {
        if (++m_looks > LongestWait / LookPeriod) {
            fail(m_step == m_steps.size() ? QStringLiteral("The program does not end.")
                                          : QStringLiteral("The row is \"%1\" in place of \"%2\".")
                                                    .arg(focusedRow(), m_steps[m_step].row));
        }
        if (m_step == m_steps.size() || focusedRow() != m_steps[m_step].row)
            return;
        if (m_step == 0)
            inspect(QApplication::focusWidget()->window());
        work(m_steps[m_step++].key);
    }

    void inspect(QWidget *screen)
    {
        if (screen->logicalDpiY() != 72)
            fail(QStringLiteral("A point is not a pixel, the screen has %1 dpi.").arg(screen->logicalDpiY()));
        for (const char *picture : pictures) {
            if (!QFile::exists(QStringLiteral(":/resource/images_l2/%1.png").arg(QLatin1String(picture))))
                fail(QStringLiteral("The picture %1.png is missing.").arg(QLatin1String(picture)));
        }
        const QString file = qEnvironmentVariable("SCREENPROBE_PICTURE");
        if (!file.isEmpty() && !screen->grab().save(file))
            fail(QStringLiteral("The picture cannot be written to %1.").arg(file));
    }
};

}

class ScreenProbePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "screenprobe.json")

public:
    QObject *create(const QString &, const QString &) override { return new ScreenProbe; }
};

#include "screenprobe.moc"

#include "target.h"

#include "quietplatform.h"
#include "widget.h"
#include "widgetmarqueelable.h"

#include "platform/soundmanager.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QKeyEvent>
#include <QMap>
#include <QMetaMethod>

#include <cstdio>
#include <cstdlib>

namespace {

const int MostSteps = 300;
const int StepsPerComparison = 16;

/// Of fast fingers, in milliseconds.
const int TimeOfKey = 20;

/// A keypad without key texts lights all its keys on all its pages at each show.
const int MostTimers = 1000;
const int LongestShot = 1200;  // milliseconds

/// The multi-tap time, a flash and some steps of a title that scrolls.
const int EverythingIsOver = 5000;

QMap<QString, TargetMaker> &makers()
{
    static QMap<QString, TargetMaker> instance;
    return instance;
}

int objectCount(QObject *object)
{
    return object->findChildren<QObject *>().size() + 1;
}

bool isOurs(const QMetaObject *type)
{
    for (; type; type = type->superClass()) {
        if (type == &Widget::staticMetaObject || type == &WidgetMarqueeLable::staticMetaObject)
            return true;
    }
    return false;
}

}

const QRect Target::s_place(0, 0, 220, 176);
long Target::s_stepCount = 0;
long Target::s_comparisonCount = 0;

QStringList targetNames()
{
    return makers().keys();
}

Target *newTarget(const QString &name)
{
    return makers().contains(name) ? makers().value(name)() : 0;
}

bool registerTarget(const char *name, TargetMaker maker)
{
    makers().insert(QLatin1String(name), maker);
    return true;
}

void Meddler::hear(QObject *object)
{
    const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("meddle()"));
    for (const QMetaObject *type = object->metaObject(); type && isOurs(type); type = type->superClass()) {
        for (int i = type->methodOffset(); i < type->methodCount(); ++i) {
            if (type->method(i).methodType() == QMetaMethod::Signal)
                connect(object, type->method(i), this, slot);
        }
    }
}

Target::Target() :
    m_bytes(0), m_verbose(false), m_tame(false), m_mustLookAlike(false), m_looksAlike(true),
    m_meddling(false), m_entangled(false), m_dying(false), m_calmTime(0), m_armed(0), m_sounds(0)
{
    QuietPlatform::reset();
}

Target::~Target()
{
    delete m_screen;
    delete m_otherScreen;
    delete m_widget;
    delete m_meddler;
}

bool Target::run(Bytes &bytes, bool verbose, bool mustLookAlike)
{
    m_bytes = &bytes;
    m_verbose = verbose;
    m_mustLookAlike = mustLookAlike;
    m_tame = bytes.byte() % 4 != 0;
    bytes.setModest(m_tame);
    for (int i = 1; i <= MostSteps && !bytes.atEnd(); ++i) {
        step();
        checkAll();
        if (i % StepsPerComparison == 0)
            comparePictures();
        ++s_stepCount;
    }
    comparePictures();

    say("the end");
    deleteWidget();
    delete m_screen;
    delete m_otherScreen;
    m_time.settle();
    m_time.pass(EverythingIsOver);
    if (!QApplication::topLevelWidgets().isEmpty())
        fail("a window is left");
    if (!QApplication::allWidgets().isEmpty())
        fail("a widget is left");
    if (m_time.timerCount() > 0)
        fail("a timer is left");
    return m_looksAlike;
}

void Target::resize(int w, int h)
{
    say("resize");
    m_widget->resize(w, h);
}

void Target::say(const char *step)
{
    if (!m_verbose) {
        m_bytes->takeNotes();
        return;
    }
    printf("%s(%s)\n", step, qPrintable(m_bytes->takeNotes()));
    fflush(stdout);
}

void Target::fail(const char *what)
{
    fprintf(stderr, "FAILED: %s\n", what);
    abort();
}

void Target::expect(bool condition, const char *what)
{
    if (!condition)
        fail(what);
}

QString Target::sheet()
{
    return m_tame ? m_bytes->plainSheet() : m_bytes->sheet();
}

void Target::ensureWidget()
{
    if (!m_meddler)
        m_meddler = new Meddler([this] { meddle(); });
    // Again where a slot deletes it at once.
    while (!m_screen) {
        m_screen = new QWidget;
        m_screen->setObjectName(QLatin1String("screen"));
        m_screen->resize(220, 176);
        showInFront(m_screen);
    }
    if (m_widget)
        return;
    forget();
    m_armed = 0;
    m_dying = false;
    m_entangled = false;
    m_sounds = m_bytes->byte() % 8 == 7 ? 0 : SoundManager::getInstance();
    m_widget = create(m_screen);
    m_widget->setGeometry(s_place);
    m_meddler->hear(m_widget);
    if (m_bytes->flag()) {
        m_widget->show();
        m_widget->setFocus();
    }
}

void Target::step()
{
    if (m_dying)
        m_time.settle();
    ensureWidget();
    m_calmTime = 0;
    const int what = m_bytes->byte();
    if (what / 4 < 36)
        call();
    else
        doCommonStep(what / 4 - 36);
    // Some calls come one after the other without the event loop.
    if (what % 4 != 3)
        m_time.settle();
}

void Target::showInFront(QWidget *window)
{
    const QPointer<QWidget> shown(window);
    window->show();
    window->activateWindow();
    m_time.settle();
    // The offscreen platform does not give a window back what it had when it was hidden.
    if (shown && !shown->isActiveWindow())
        QApplication::setActiveWindow(shown);
}

int Target::key()
{
    static const int keys[] = {Qt::Key_0, Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5, Qt::Key_6, Qt::Key_7,
                               Qt::Key_8, Qt::Key_9, Qt::Key_F1, Qt::Key_F2, Qt::Key_F3, Qt::Key_F4, Qt::Key_Menu,
                               Qt::Key_Escape, Qt::Key_2, Qt::Key_8, Qt::Key_4, Qt::Key_6, Qt::Key_8, Qt::Key_6,
                               Qt::Key_Asterisk, Qt::Key_NumberSign, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab,
                               Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_A, 0};
    return keys[m_bytes->below(sizeof keys / sizeof *keys)];
}

void Target::sendKey(QEvent::Type type, int key, bool repeated)
{
    QWidget *receiver = QApplication::focusWidget();
    if (!receiver)
        receiver = m_widget;
    if (!receiver)
        return;
    QKeyEvent event(type, key, Qt::NoModifier, QString(), repeated);
    QApplication::sendEvent(receiver, &event);
}

void Target::strike(int key, int repeats)
{
    sendKey(QEvent::KeyPress, key);
    for (int i = 0; i < repeats; ++i)
        sendKey(QEvent::KeyPress, key, true);
    sendKey(QEvent::KeyRelease, key);
    m_time.pass(TimeOfKey);
}

void Target::doCommonStep(int step)
{
    switch (step) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
    case 6:
    case 7: {
        const int what = key();
        say("strike");
        return strike(what);
    }
    case 8: {
        const int what = key(), repeats = m_bytes->below(40);
        say("hold");
        return strike(what, repeats);
    }
    case 9: {
        const int what = key();
        const bool repeated = m_bytes->flag();
        say("press");
        return sendKey(QEvent::KeyPress, what, repeated);
    }
    case 10: {
        const int what = key();
        const bool repeated = m_bytes->flag();
        say("release");
        return sendKey(QEvent::KeyRelease, what, repeated);
    }
    case 11:
    case 12: {
        static const int times[] = {1, 50, 99, 100, 101, 200, 500, 1199, 1200, 1201, 3000};
        const int ms = times[m_bytes->below(11)];
        say("time passes");
        m_time.pass(ms);
        m_calmTime = ms;
        return;
    }
    case 13:
    case 14:
        say("show");
        m_widget->show();
        return m_widget->setFocus();
    case 15: say("hide"); return m_widget->hide();
    case 16: {
        const int w = m_bytes->below(250), h = m_bytes->below(250);
        return resize(w, h);
    }
    case 17: {
        const bool visible = m_bytes->flag();
        say("screen->setVisible");
        return visible ? showInFront(m_screen) : m_screen->hide();
    }
    case 18: {
        const bool back = m_bytes->flag(), shown = m_bytes->flag();
        say("reparent");
        if (!m_otherScreen) {
            m_otherScreen = new QWidget;
            m_otherScreen->resize(220, 176);
            m_otherScreen->show();
        }
        m_widget->setParent(back ? m_screen : m_otherScreen);
        return m_widget->setVisible(shown);
    }
    case 19: {
        const bool focus = m_bytes->flag();
        say("focus");
        // The toolkit goes on pointing to a part of a hidden widget that gets the focus, another parent and is deleted.
        if (focus && m_widget->isVisible())
            m_widget->setFocus();
        return focus ? void() : m_widget->clearFocus();
    }
    case 20:
    case 21:
    case 22:
        m_armed = 1 + m_bytes->below(9);
        return say("meddle at the next signal");
    case 23: {
        const bool later = m_bytes->flag();
        say("delete");
        return later ? deleteWidgetLater() : deleteWidget();
    }
    case 24: say("delete the screen"); return deleteScreen();
    case 25: {
        const bool mirrored = m_bytes->flag();
        say("right to left");
        return QuietPlatform::setRightToLeft(mirrored && !m_tame);
    }
    case 26: {
        const QString style = sheet();
        say("screen->setStyleSheet");
        return m_screen->setStyleSheet(m_tame ? QString() : style);
    }
    default:
        say("paint");
        pictureOf(m_screen);
    }
}

// What a slot of an application may do, and what a careless one does.
void Target::meddle()
{
    if (m_armed == 0 || m_meddling)
        return;
    const int action = m_armed;
    m_armed = 0;
    m_meddling = true;
    switch (action) {
    case 1: say("  slot: delete"); deleteWidget(); break;
    case 2: say("  slot: delete the screen"); deleteScreen(); break;
    case 3:
        say("  slot: delete the receiver");
        delete m_meddler;
        break;
    case 4:
        say("  slot: delete later");
        deleteWidgetLater();
        break;
    case 5:
        say("  slot: hide");
        if (m_widget)
            m_widget->hide();
        break;
    case 6: say("  slot: run the event loop"); m_time.settle(); break;
    default:
        say("  slot:");
        m_entangled = true;
        if (m_widget)
            call();
    }
    m_meddling = false;
}

void Target::deleteWidget()
{
    forget();
    delete m_widget;
}

void Target::deleteWidgetLater()
{
    if (!m_widget)
        return;
    forget();
    m_dying = true;
    m_widget->deleteLater();
}

void Target::deleteScreen()
{
    if (m_widget && m_screen->isAncestorOf(m_widget))
        forget();
    delete m_screen;
}

void Target::checkAll()
{
    // A widget that the application hides itself keeps the focus where the toolkit finds no other.
    const QWidget *focus = QApplication::focusWidget();
    foreach (QWidget *window, QApplication::topLevelWidgets()) {
        QWidget *last = window->focusWidget();
        expect(!last || QApplication::allWidgets().contains(last), "a widget that is gone has the focus of its window");
    }
    const bool isPart = m_widget && m_widget->isVisible() && m_widget->isAncestorOf(focus) && focus != m_widget;
    expect(!isPart || focus->isVisible(), "a part that is not seen has the focus");
    if (m_widget)
        expect(objectCount(m_widget) <= mostObjects(), "there are too many objects");
    // Those that are on their way, such as a hundred of keys that were lit at once, run out.
    if (VirtualTime::timerCount() > MostTimers)
        m_time.pass(LongestShot);
    expect(VirtualTime::timerCount() <= MostTimers, "there are too many timers");
    check();
}

QImage Target::pictureOf(QWidget *screen)
{
    if (screen->size().isEmpty())
        return QImage();
    QImage picture(screen->size(), QImage::Format_RGB32);
    picture.fill(0);
    screen->render(&picture);
    return picture;
}

void Target::comparePictures()
{
    m_time.settle();
    if (!m_widget || m_dying || m_entangled || !m_screen || m_widget->parentWidget() != m_screen)
        return;
    const int armed = m_armed;
    m_armed = 0;
    QWidget screen;
    screen.setObjectName(QLatin1String("screen"));
    screen.resize(m_screen->size());
    if (QWidget *made = fresh(&screen)) {
        say("compare");
        const QImage now = shownAgain(m_screen, m_widget);
        made->setGeometry(m_widget->geometry());
        const QImage anew = shownAgain(&screen, made);
        ++s_comparisonCount;
        if (now != anew) {
            savePictures(now, anew);
            m_looksAlike = false;
            if (m_mustLookAlike)
                fail("it looks otherwise than a new one in the same state");
        }
        delete made;
        showInFront(m_screen);
        m_widget->setFocus();
        m_time.settle();
    }
    m_armed = armed;
}

QImage Target::shownAgain(QWidget *screen, QWidget *widget)
{
    showInFront(screen);
    widget->hide();
    widget->show();
    m_time.settle();
    align(widget);
    m_time.settle();
    return pictureOf(screen);
}

void Target::savePictures(const QImage &now, const QImage &fresh)
{
    const char *directory = getenv("WIDGET_FUZZ_PICTURES");
    if (!directory)
        return;
    now.save(QString::fromLocal8Bit(directory) + QLatin1String("/now.png"));
    fresh.save(QString::fromLocal8Bit(directory) + QLatin1String("/fresh.png"));
}

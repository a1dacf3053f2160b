#ifndef FUZZ_TARGET_H
#define FUZZ_TARGET_H

#include "bytes.h"
#include "virtualtime.h"

#include <QEvent>
#include <QImage>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

class SoundManager;

/// Hears all signals of a widget, and does in its slot what the input says.
class Meddler : public QObject
{
    Q_OBJECT

public:
    explicit Meddler(std::function<void()> action) : m_action(action) { }

    /// Connects every signal that the library's classes have declared for \a object.
    void hear(QObject *object);

public Q_SLOTS:
    void meddle() { m_action(); }

private:
    std::function<void()> m_action;
};

/// What the fuzzer does with one class: its input becomes calls of a widget, keys, showing, hiding, deleting and time that
/// passes, in any order. What must be true of the widget after each step is checked; where it is not, the process ends.
class Target
{
public:
    Target();
    virtual ~Target();

    /// Does all that \a bytes say, with a line for each step on the standard output if \a verbose. Returns false if the
    /// widget has looked otherwise than a new one; ends the process instead if they \a mustLookAlike.
    bool run(Bytes &bytes, bool verbose, bool mustLookAlike);

    /// Steps that were done and pictures that were compared, by all targets.
    static long s_stepCount;
    static long s_comparisonCount;

protected:
    /// A new widget in \a parent, made as bytes() say.
    virtual QWidget *create(QWidget *parent) = 0;

    /// One call of the class's own, or what else belongs to it.
    virtual void call() = 0;

    /// What must be true of the class between steps; there may be no widget.
    virtual void check() { }

    /// A new widget in the same state, in \a parent; 0 if there is nothing to compare.
    virtual QWidget *fresh(QWidget *) { return 0; }

    /// Brings a widget that was just shown, this one or that of fresh(), to where the two must look the same.
    virtual void align(QWidget *) { }

    virtual void resize(int w, int h);

    /// The widget is about to be deleted, or already is.
    virtual void forget() { }

    /// How many objects the widget may have in it.
    virtual int mostObjects() const { return 100; }

    /// Where each widget stands in its screen at first.
    static const QRect s_place;

    Bytes &bytes() { return *m_bytes; }
    QWidget *widget() const { return m_widget; }
    QWidget *screen() const { return m_screen; }
    SoundManager *sounds() const { return m_sounds; }
    VirtualTime &time() { return m_time; }

    /// Names the step that is to be done now, with what was taken from the input for it.
    void say(const char *step);

    /// A style sheet, of the kind that the input as a whole has: only plain ones, or any.
    QString sheet();

    /// Whether all sheets are plain.
    bool isTame() const { return m_tame; }

    /// Has \a object's signals meddled with.
    void hear(QObject *object) { m_meddler->hear(object); }

    /// Does what the input says that a slot is to do next, if anything: for code of an application that is no slot.
    void meddle();

    /// Sends \a key, pressed, repeated and released, to the widget that has the focus, or to this one.
    void strike(int key, int repeats = 0);
    void sendKey(QEvent::Type type, int key, bool repeated = false);
    int key();

    /// How long there has been nothing but time that passes.
    int calmTime() const { return m_calmTime; }

    /// Ends the process if \a condition does not hold.
    void expect(bool condition, const char *what);

    /// What is seen of \a screen.
    static QImage pictureOf(QWidget *screen);

private:
    friend class Meddler;

    void showInFront(QWidget *window);
    void ensureWidget();
    void step();
    void doCommonStep(int step);
    void deleteWidget();
    void deleteWidgetLater();
    void deleteScreen();
    void checkAll();
    void comparePictures();
    QImage shownAgain(QWidget *screen, QWidget *widget);
    void savePictures(const QImage &now, const QImage &fresh);
    [[noreturn]] void fail(const char *what);

    Bytes *m_bytes;
    bool m_verbose;
    bool m_tame;
    bool m_mustLookAlike;
    bool m_looksAlike;
    bool m_meddling;
    bool m_entangled;  // calls have come while another one was under way
    bool m_dying;
    int m_calmTime;
    int m_armed;  // what the next signals do
    QPointer<QWidget> m_screen;
    QPointer<QWidget> m_otherScreen;
    QPointer<QWidget> m_widget;
    QPointer<Meddler> m_meddler;
    SoundManager *m_sounds;
    VirtualTime m_time;
};

/// The target of a widget whose state is what its setters were called with: it can be made anew by calling them again.
template <typename W>
class SetterTarget : public Target
{
protected:
    typedef std::function<W *(QWidget *)> Make;
    typedef std::function<void(W *)> Call;

    W *it() const { return static_cast<W *>(widget()); }

    QWidget *make(Make make)
    {
        m_make = make;
        m_calls.clear();
        say("create");
        return make(screen());
    }

    /// Does \a call now, and when the widget is made anew.
    void set(const char *name, Call call)
    {
        say(name);
        m_calls.push_back(call);
        call(it());
    }

    virtual void resize(int w, int h)
    {
        set("resize", [=](W *widget) { widget->resize(w, h); });
    }

    virtual QWidget *fresh(QWidget *parent)
    {
        if (!m_make || !isTame())
            return 0;
        W *made = m_make(parent);
        made->setGeometry(s_place);
        for (size_t i = 0; i < m_calls.size(); ++i)
            m_calls[i](made);
        return made;
    }

    Make m_make;
    std::vector<Call> m_calls;
};

/// The targets by the names of their classes, in small letters.
QStringList targetNames();
/// A new target; 0 if there is none of this \a name.
Target *newTarget(const QString &name);

typedef Target *(*TargetMaker)();
bool registerTarget(const char *name, TargetMaker maker);

#define FUZZ_TARGET(name, Class) \
    static Target *makeTarget() { return new Class; } \
    static const bool s_registered = registerTarget(name, makeTarget);

#endif

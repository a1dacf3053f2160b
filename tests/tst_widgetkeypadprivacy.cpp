#include "keypadtesting.h"
#include "memorysearch.h"
#include "sanitizers.h"

#include <QAccessible>
#include <QMetaProperty>
#include <QtTest>

#include <functional>
#include <memory>

using namespace KeypadTesting;

static bool s_isReading = false;

// These two take the place of the toolkit's own, which do nothing unless a screen reader runs, and there is none where
// there is no display.

bool QAccessible::isActive()
{
    return s_isReading;
}

void QAccessible::updateAccessibility(QAccessibleEvent *event)
{
    const UpdateHandler handler = installUpdateHandler(nullptr);
    installUpdateHandler(handler);
    if (handler)
        handler(event);
}

namespace {

/// Which key types the character \a i.
struct Key
{
    int page;
    int digit;
};

Key keyFor(int i)
{
    return {i % 3, i / 3 * 3 % 10};
}

int placeOf(int digit)
{
    return digit == 0 ? 10 : digit - 1;
}

enum class Keys { OneCharacter, SeveralCharacters };

/// A keypad that can type the searched text, and a window around it.
class TypingKeypad
{
public:
    TypingKeypad(const SearchedText &text, Keys keys)
        : m_text(text),
          m_presses(keys == Keys::OneCharacter ? 1 : 2)
    {
        m_keypad = new WidgetKeypad(&m_window, SoundManager::getInstance());
        for (int k = 0; k < SearchedText::Length; ++k) {
            // Not in the order of the text, of which the keys would make a copy.
            const int i = 7 * k % SearchedText::Length;
            QString keyText(m_text.at(i));
            if (m_presses > 1)
                keyText = 'k' + keyText + 'q' + QChar('0' + i / 3);
            const Key key = keyFor(i);
            m_keypad->setKeyText(key.page, placeOf(key.digit) / 3, placeOf(key.digit) % 3, keyText);
        }
        for (int digit = 0; digit < 10; ++digit)
            m_keypad->setKeyMap(Qt::Key_0 + digit, placeOf(digit) / 3, placeOf(digit) % 3);
        dressItems(*m_keypad);
        m_keypad->setLineTextHeight(38);
        m_keypad->setBgGeometry(0, 0, 220, 263);
        m_window.resize(220, 263);
    }

    WidgetKeypad &operator*() { return *m_keypad; }
    WidgetKeypad *operator->() { return m_keypad; }
    QWidget &window() { return m_window; }

    void show(bool hidden)
    {
        m_keypad->hideText(hidden);
        m_keypad->setInitialLineText(QString(), hidden, true, false);
        m_window.show();
        QCoreApplication::processEvents();
    }

    void typeCharacter(int i)
    {
        m_keypad->setPage(keyFor(i).page);
        for (int press = 0; press < m_presses; ++press)
            release(*m_keypad, Qt::Key_0 + keyFor(i).digit);
    }

    void type(int first = 0, int last = SearchedText::Length - 1)
    {
        for (int i = first; i <= last; ++i)
            typeCharacter(i);
    }

    /// Whether the line has the \a length first characters, without making a text to compare with.
    bool hasTyped(int length = SearchedText::Length)
    {
        const QString text = line(*m_keypad)->text();
        bool same = int(text.size()) == length;
        for (int i = 0; same && i < length; ++i)
            same = text.at(i) == m_text.at(i);
        return same;
    }

private:
    const SearchedText m_text;
    const int m_presses;
    QWidget m_window;
    QPointer<WidgetKeypad> m_keypad;
};

typedef std::function<void(TypingKeypad &)> Action;

void deleteKeypad(TypingKeypad &keypad)
{
    delete &*keypad;
}

void holdDeleteKey(WidgetKeypad &keypad)
{
    press(keypad, Qt::Key_F4);
    for (int repeat = 0; repeat < 6; ++repeat)
        press(keypad, Qt::Key_F4, true);
    release(keypad, Qt::Key_F4);
}

QStringList s_readOut;

/// What a program that reads out the screen hears.
void readOut(QAccessibleEvent *event)
{
    QString removed;
    QString inserted;
    switch (event->type()) {
    case QAccessible::TextInserted:
        inserted = static_cast<QAccessibleTextInsertEvent *>(event)->textInserted();
        break;
    case QAccessible::TextRemoved:
        removed = static_cast<QAccessibleTextRemoveEvent *>(event)->textRemoved();
        break;
    case QAccessible::TextUpdated:
        removed = static_cast<QAccessibleTextUpdateEvent *>(event)->textRemoved();
        inserted = static_cast<QAccessibleTextUpdateEvent *>(event)->textInserted();
        break;
    case QAccessible::ValueChanged:
        inserted = static_cast<QAccessibleValueChangeEvent *>(event)->value().toString();
        break;
    default:
        return;
    }
    s_readOut += removed + '>' + inserted;
}

class Reader
{
public:
    explicit Reader(QAccessible::UpdateHandler handler = readOut)
        : m_before(QAccessible::installUpdateHandler(handler))
    {
        s_readOut.clear();
        s_isReading = true;
    }

    ~Reader()
    {
        s_isReading = false;
        QAccessible::installUpdateHandler(m_before);
    }

private:
    const QAccessible::UpdateHandler m_before;
};

QString toText(const QVariant &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

/// What everything that can be asked for \a object says, except for the text of the line, which is there to be asked for.
QStringList told(QObject *object)
{
    QStringList lines;
    const QMetaObject *meta = object->metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        if (!qobject_cast<QLineEdit *>(object) || qstrcmp(property.name(), "text") != 0)
            lines += QString("%1.%2: %3").arg(meta->className(), property.name(), toText(property.read(object)));
    }
    for (const QByteArray &name : object->dynamicPropertyNames())
        lines += QString("%1: %2").arg(QString(name), toText(object->property(name)));

    if (QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(object)) {
        for (int text = QAccessible::Name; text <= QAccessible::Accelerator; ++text)
            lines += QString("accessible text %1: %2").arg(text).arg(accessible->text(QAccessible::Text(text)));
        if (QAccessibleTextInterface *text = accessible->textInterface()) {
            lines += "accessible text: " + text->text(0, text->characterCount());
            for (int i = 0; i < text->characterCount(); ++i) {
                int start = 0;
                int end = 0;
                lines += text->textAtOffset(i, QAccessible::CharBoundary, &start, &end) + text->attributes(i, &start, &end);
            }
        }
        if (QAccessibleValueInterface *value = accessible->valueInterface())
            lines += "accessible value: " + toText(value->currentValue());
    }
    return lines;
}

/// All that a keypad tells while \a keys are typed: its log, its sounds, what it reads out, its picture and all that its
/// parts say after each key.
QStringList toldWhileTyping(bool hidden, int page, const QList<int> &keys)
{
    RecordingPlatform::reset();
    const Reader reader;
    QWidget window;
    window.resize(220, 263);
    FilledKeypad keypad(&window);
    keypad.hideText(hidden);
    keypad.setInitialLineText(QString(), hidden, false, false);
    window.show();
    keypad.setPage(page);
    QStringList lines;
    for (int key : keys) {
        press(keypad, key);
        release(keypad, key);
        lines += told(&window);
        const QList<QWidget *> widgets = window.findChildren<QWidget *>();
        for (QWidget *widget : widgets)
            lines += told(widget);
        const QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QByteArray pixels = QByteArray::fromRawData(reinterpret_cast<const char *>(picture.constBits()),
                                                          int(picture.sizeInBytes()));
        lines += "picture: " + QCryptographicHash::hash(pixels, QCryptographicHash::Md5).toHex();
    }
    return lines + RecordingPlatform::events() + s_readOut;
}

void addKeysOfTwoPasswords()
{
    typedef QList<int> KeyList;
    QTest::addColumn<int>("page");
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<QList<int>>("otherKeys");
    QTest::newRow("letters") << 0 << KeyList{Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_6}
                             << KeyList{Qt::Key_5, Qt::Key_8, Qt::Key_7, Qt::Key_9};
    QTest::newRow("letters of one key") << 0 << KeyList{Qt::Key_2, Qt::Key_2, Qt::Key_2}
                                        << KeyList{Qt::Key_9, Qt::Key_9, Qt::Key_9};
    QTest::newRow("digits") << 1 << KeyList{Qt::Key_0, Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4}
                            << KeyList{Qt::Key_5, Qt::Key_6, Qt::Key_7, Qt::Key_8, Qt::Key_9};
    QTest::newRow("blanks and deleted digits") << 1
        << KeyList{Qt::Key_7, Qt::Key_F3, Qt::Key_7, Qt::Key_F4, Qt::Key_1, Qt::Key_F4, Qt::Key_F4}
        << KeyList{Qt::Key_2, Qt::Key_F3, Qt::Key_4, Qt::Key_F4, Qt::Key_5, Qt::Key_F4, Qt::Key_F4};
    QTest::newRow("the key that ends it") << 1 << KeyList{Qt::Key_7, Qt::Key_Menu}
                                          << KeyList{Qt::Key_0, Qt::Key_Menu};
}

}

Q_DECLARE_METATYPE(Action)
Q_DECLARE_METATYPE(Keys)

// What a keypad gives away of what is typed with it, above all of a password.
class TestWidgetKeypadPrivacy : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void hiddenTypingTellsNothing_data();
    void hiddenTypingTellsNothing();
    void seenTypingTells_data();
    void seenTypingTells();
    void hiddenTextIsReadOutAsStars();
    void seenTextIsReadOut();
    void onlyTheLineIsReadOutAsStars();
    void cursorIsReadOutAlikeForStars();
    void whoReadsOutMayType();
    void keypadsFilledByOneAnotherAreReadOutAsStars();

    void searchFindsWhatIsTyped_data();
    void searchFindsWhatIsTyped();
    void nothingTypedStaysInMemory_data();
    void nothingTypedStaysInMemory();
    void maskedInitialTextThatIsReplacedLeavesMemory_data();
    void maskedInitialTextThatIsReplacedLeavesMemory();
};

void TestWidgetKeypadPrivacy::init()
{
    RecordingPlatform::reset();
}

void TestWidgetKeypadPrivacy::hiddenTypingTellsNothing_data()
{
    addKeysOfTwoPasswords();
}

void TestWidgetKeypadPrivacy::hiddenTypingTellsNothing()
{
    QFETCH(int, page);
    QFETCH(QList<int>, keys);
    QFETCH(QList<int>, otherKeys);
    QCOMPARE(toldWhileTyping(true, page, keys), toldWhileTyping(true, page, otherKeys));
}

void TestWidgetKeypadPrivacy::seenTypingTells_data()
{
    addKeysOfTwoPasswords();
}

void TestWidgetKeypadPrivacy::seenTypingTells()
{
    QFETCH(int, page);
    QFETCH(QList<int>, keys);
    QFETCH(QList<int>, otherKeys);
    QVERIFY(toldWhileTyping(false, page, keys) != toldWhileTyping(false, page, otherKeys));
}

void TestWidgetKeypadPrivacy::hiddenTextIsReadOutAsStars()
{
    FilledKeypad keypad;
    keypad.hideText(true);
    const Reader reader;
    keypad.setInitialLineText("xyz", true, true, false);
    QCOMPARE(s_readOut, QStringList{">***"});
    keypad.show();
    s_readOut.clear();
    release(keypad, Qt::Key_2);
    QCOMPARE(s_readOut, QStringList{"***>****"});
    s_readOut.clear();
    keypad.setKeyMaxLength(2);
    QCOMPARE(s_readOut, QStringList{"****>**"});
    s_readOut.clear();
    holdDeleteKey(keypad);
    QCOMPARE(s_readOut, QStringList{"**>"});
}

void TestWidgetKeypadPrivacy::seenTextIsReadOut()
{
    FilledKeypad keypad;
    const Reader reader;
    keypad.setInitialLineText("xyz", false, true, false);
    keypad.show();
    release(keypad, Qt::Key_2);
    QCOMPARE(s_readOut, QStringList({">xyz", "xyz>xyza"}));
    s_readOut.clear();
    holdDeleteKey(keypad);
    QCOMPARE(s_readOut, QStringList({"xyza>"}));
}

void TestWidgetKeypadPrivacy::onlyTheLineIsReadOutAsStars()
{
    FilledKeypad keypad;
    keypad.hideText(true);
    keypad.setInitialLineText(QString(), true, true, false);
    keypad.show();
    QLineEdit other;
    connect(line(keypad), &QLineEdit::textChanged, &other, [&other] { other.setText("abc"); });
    const Reader reader;
    release(keypad, Qt::Key_2);
    s_readOut.sort();
    QCOMPARE(s_readOut, QStringList({">*", ">abc"}));
    s_readOut.clear();
    other.setText("def");
    QCOMPARE(s_readOut, QStringList{"abc>def"});
}

void TestWidgetKeypadPrivacy::cursorIsReadOutAlikeForStars()
{
    QStringList told[2];
    for (bool hidden : {false, true}) {
        FilledKeypad keypad;
        keypad.hideText(hidden);
        const Reader reader([](QAccessibleEvent *event) {
            switch (event->type()) {
            case QAccessible::TextInserted:
            case QAccessible::TextRemoved:
            case QAccessible::TextUpdated:
            case QAccessible::TextCaretMoved:
                s_readOut += QString("%1 at %2").arg(event->type()).arg(
                    static_cast<QAccessibleTextCursorEvent *>(event)->cursorPosition());
                break;
            default:
                break;
            }
        });
        keypad.setInitialLineText("xyz", hidden, true, false);
        keypad.show();
        release(keypad, Qt::Key_2);
        release(keypad, Qt::Key_1);
        release(keypad, Qt::Key_F4);
        holdDeleteKey(keypad);
        told[hidden] = s_readOut;
    }
    QVERIFY(told[0].size() > 4);
    QCOMPARE(told[1], told[0]);
}

void TestWidgetKeypadPrivacy::whoReadsOutMayType()
{
    static FilledKeypad *s_other = nullptr;
    FilledKeypad keypad;
    FilledKeypad other;
    for (FilledKeypad *each : {&keypad, &other}) {
        each->hideText(true);
        each->setInitialLineText(QString(), true, true, false);
        each->show();
    }
    s_other = &other;
    const Reader reader([](QAccessibleEvent *event) {
        const bool isText = event->type() == QAccessible::TextInserted || event->type() == QAccessible::TextUpdated;
        readOut(event);
        FilledKeypad *once = s_other;
        if (!isText || !once)
            return;
        s_other = nullptr;
        release(*once, Qt::Key_3);
    });
    release(keypad, Qt::Key_2);
    release(keypad, Qt::Key_1);
    QCOMPARE(s_readOut, QStringList({">*", ">*", "*>**"}));
    QCOMPARE(line(keypad)->text(), QString("a1"));
    QCOMPARE(line(other)->text(), QString("d"));
}

void TestWidgetKeypadPrivacy::keypadsFilledByOneAnotherAreReadOutAsStars()
{
    FilledKeypad keypad;
    FilledKeypad other;
    for (FilledKeypad *each : {&keypad, &other}) {
        each->hideText(true);
        each->setInitialLineText(QString(), true, true, false);
        each->show();
    }
    connect(line(keypad), &QLineEdit::textChanged, &other,
            [&other] { other.setInitialLineText("secret", true, true, false); });
    const Reader reader;
    release(keypad, Qt::Key_2);
    s_readOut.sort();
    QCOMPARE(s_readOut, QStringList({">*", ">******"}));
}

void TestWidgetKeypadPrivacy::searchFindsWhatIsTyped_data()
{
    QTest::addColumn<bool>("hidden");
    QTest::newRow("seen") << false;
    QTest::newRow("hidden") << true;
}

void TestWidgetKeypadPrivacy::searchFindsWhatIsTyped()
{
#ifdef HAS_SANITIZER
    QSKIP("The memory of a sanitizer is too large to search.");
#endif
    QFETCH(bool, hidden);
    const SearchedText text(hidden);
    MemorySearch search(text);
    TypingKeypad keypad(text, Keys::OneCharacter);
    keypad.show(hidden);
    keypad.type(0, 2);
    QCOMPARE(search.finds(), QString());
    keypad.typeCharacter(3);
    QVERIFY(search.finds().startsWith("4 characters of UTF-16"));
}

void TestWidgetKeypadPrivacy::nothingTypedStaysInMemory_data()
{
    // A text of its own for each, so that no row finds what another has left.
    QTest::addColumn<unsigned>("number");
    QTest::addColumn<bool>("hidden");
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<Action>("end");

    const struct
    {
        const char *name;
        Action action;
        bool onlyHidden = false;
    } ends[] = {
        {"destroyed", deleteKeypad},
        {"destroyed by who hears that it is ready",
         [](TypingKeypad &keypad) {
             QObject::connect(&*keypad, &WidgetKeypad::ready, [&keypad] { deleteKeypad(keypad); });
             release(*keypad, Qt::Key_Menu);
         }},
        // The toolkit makes copies of a text that is seen while it dresses the line.
        {"destroyed after the next show",
         [](TypingKeypad &keypad) {
             keypad->hide();
             keypad->show();
             keypad.window().grab();
             deleteKeypad(keypad);
         },
         true},
        {"cleared", [](TypingKeypad &keypad) { holdDeleteKey(*keypad); }},
        {"deleted one by one",
         [](TypingKeypad &keypad) {
             for (int i = 0; i < SearchedText::Length; ++i)
                 release(*keypad, Qt::Key_F4);
         }},
        {"given another initial text",
         [](TypingKeypad &keypad) { keypad->setInitialLineText("abc", false, false, false); }},
        {"replaced after the next show",
         [](TypingKeypad &keypad) {
             keypad->hide();
             keypad->setInitialLineText(line(*keypad)->text(), true, false, false);
             keypad->show();
             keypad.typeCharacter(0);
         }},
        {"longer than the line and then cleared",
         [](TypingKeypad &keypad) {
             keypad->setSpaceString("     ");
             keypad->setKeyMaxLength(SearchedText::Length + 1);
             for (int i = 0; i < 3; ++i)
                 release(*keypad, Qt::Key_F3);
             holdDeleteKey(*keypad);
         }},
        {"longer than the line and then destroyed",
         [](TypingKeypad &keypad) {
             keypad->setSpaceString("     ");
             keypad->setKeyMaxLength(SearchedText::Length + 1);
             for (int i = 0; i < 3; ++i)
                 release(*keypad, Qt::Key_F3);
             deleteKeypad(keypad);
         }},
        {"cut and then destroyed",
         [](TypingKeypad &keypad) {
             keypad->setKeyMaxLength(7);
             deleteKeypad(keypad);
         }},
        {"cut and then cleared",
         [](TypingKeypad &keypad) {
             keypad->setKeyMaxLength(7);
             holdDeleteKey(*keypad);
         }},
    };
    unsigned number = 2;
    for (bool hidden : {true, false}) {
        for (Keys keys : {Keys::OneCharacter, Keys::SeveralCharacters}) {
            for (const auto &end : ends) {
                if (end.onlyHidden && !hidden)
                    continue;
                QTest::addRow("%s, %s, %s", end.name, hidden ? "hidden" : "seen",
                              keys == Keys::OneCharacter ? "one character on a key" : "several characters on a key")
                    << number++ << hidden << keys << end.action;
            }
        }
    }
}

void TestWidgetKeypadPrivacy::nothingTypedStaysInMemory()
{
#ifdef HAS_SANITIZER
    QSKIP("The memory of a sanitizer is too large to search.");
#endif
    QFETCH(unsigned, number);
    QFETCH(bool, hidden);
    QFETCH(Keys, keys);
    QFETCH(Action, end);
    const SearchedText text(number);
    MemorySearch search(text);
    TypingKeypad keypad(text, keys);
    keypad.show(hidden);
    QCOMPARE(search.finds(), QString());
    for (int i = 0; i < SearchedText::Length; ++i) {
        keypad.typeCharacter(i);
        keypad.window().grab();
    }
    QVERIFY(keypad.hasTyped());
    end(keypad);
    QCOMPARE(search.finds(), QString());
}

void TestWidgetKeypadPrivacy::maskedInitialTextThatIsReplacedLeavesMemory_data()
{
    QTest::addColumn<unsigned>("number");
    QTest::addColumn<bool>("shown");
    QTest::newRow("before the first show") << 100u << false;
    QTest::newRow("while it is shown") << 101u << true;
}

void TestWidgetKeypadPrivacy::maskedInitialTextThatIsReplacedLeavesMemory()
{
#ifdef HAS_SANITIZER
    QSKIP("The memory of a sanitizer is too large to search.");
#endif
    QFETCH(unsigned, number);
    QFETCH(bool, shown);
    const SearchedText text(number);
    MemorySearch search(text);
    TypingKeypad keypad(text, Keys::OneCharacter);
    keypad->hideText(true);
    if (shown)
        keypad.window().show();
    keypad->setInitialLineText(text.copy(), true, false, false);
    keypad->hide();
    keypad.window().show();
    keypad->show();
    keypad.window().grab();
    QVERIFY(keypad.hasTyped());
    keypad.typeCharacter(0);
    QCOMPARE(search.finds(), QString());
}

QTEST_MAIN(TestWidgetKeypadPrivacy)

#include "tst_widgetkeypadprivacy.moc"

#include "target.h"
#include "widgetkeypad.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace {

const int FlashTime = 100;
const int ChecksPerReport = 8;

/// Keeps what the keypad says that its text is.
class KeypadReport : public QObject
{
    Q_OBJECT

public:
    QString m_text;

public Q_SLOTS:
    void take(QString text) { m_text = text; }
};

class WidgetKeypadTarget : public SetterTarget<WidgetKeypad>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        m_lineIsText = false;
        m_checks = 0;
        const int style = bytes().below(3);
        m_keeps = style > 0;
        return make([=](QWidget *parent) {
            WidgetKeypad *keypad = new WidgetKeypad(parent, sounds());
            if (style > 0)
                fill(keypad, style == 2);
            return keypad;
        });
    }

    virtual void call()
    {
        switch (bytes().below(24)) {
        case 0: {
            const int page = bytes().index(6), row = bytes().index(4), column = bytes().index(3);
            const QString text = bytes().text();
            m_lineIsText = false;
            return set("setKeyText", [=](WidgetKeypad *it) { it->setKeyText(page, row, column, text); });
        }
        case 1: {
            const int key = bytes().flag() ? this->key() : bytes().number();
            const int row = bytes().index(4), column = bytes().index(3);
            return set("setKeyMap", [=](WidgetKeypad *it) { it->setKeyMap(key, row, column); });
        }
        case 2: {
            const int page = bytes().index(6);
            const bool enable = bytes().flag();
            return set("enablePage", [=](WidgetKeypad *it) { it->enablePage(page, enable); });
        }
        // Each show goes back to the first page.
        case 3: {
            const int page = bytes().index(6);
            say("setPage");
            return it()->setPage(page);
        }
        case 4: {
            const bool next = bytes().flag();
            say("changePage");
            return it()->changePage(next);
        }
        case 5: say("setInitialPage"); return it()->setInitialPage();
        case 6: {
            const int height = bytes().length();
            return set("setLineTextHeight", [=](WidgetKeypad *it) { it->setLineTextHeight(height); });
        }
        case 7: {
            const int length = bytes().flag() ? bytes().number() : bytes().below(60);
            m_lineIsText = false;
            return set("setKeyMaxLength", [=](WidgetKeypad *it) { it->setKeyMaxLength(length); });
        }
        case 8: {
            const QString text = bytes().text();
            return set("setPlaceholderText", [=](WidgetKeypad *it) { it->setPlaceholderText(text); });
        }
        case 9: {
            const QString text = bytes().text();
            return set("setSpaceString", [=](WidgetKeypad *it) { it->setSpaceString(text); });
        }
        case 10:
        case 11: {
            const QString text = bytes().text();
            const bool mask = bytes().flag(), keep = bytes().flag(), select = bytes().flag();
            set("setInitialLineText", [=](WidgetKeypad *it) { it->setInitialLineText(text, mask, keep, select); });
            m_lineIsText = false;
            m_keeps = keep;
            return;
        }
        case 12: {
            const bool hide = bytes().flag();
            return set("hideText", [=](WidgetKeypad *it) { it->hideText(hide); });
        }
        case 13: {
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            return set("setBgGeometry", [=](WidgetKeypad *it) { it->setBgGeometry(x, y, w, h); });
        }
        case 14: {
            const WidgetKeypad::Item item = WidgetKeypad::Item(bytes().index(4));
            const WidgetKeypad::State state = WidgetKeypad::State(bytes().index(2));
            const QString style = sheet();
            return set("setItemStyle", [=](WidgetKeypad *it) { it->setItemStyle(item, state, style); });
        }
        case 15: {
            const WidgetKeypad::Item item = WidgetKeypad::Item(bytes().index(4));
            const QString text = bytes().text();
            return set("setItemText", [=](WidgetKeypad *it) { it->setItemText(item, text); });
        }
        case 16: {
            const WidgetKeypad::Item item = WidgetKeypad::Item(bytes().index(4));
            const bool visible = bytes().flag();
            return set("setItemVisible", [=](WidgetKeypad *it) { it->setItemVisible(item, visible); });
        }
        case 17: return set("setItemFont", [](WidgetKeypad *it) { it->setItemFont(); });
        case 18: say("setupUi"); return it()->setupUi();
        case 19: {
            say("shown again");
            it()->hide();
            it()->show();
            it()->setFocus();
            // The text is what stands in the line now, and goes on being it where no key replaces it.
            m_lineIsText = m_keeps && it()->isVisible();
            return;
        }
        case 20: {
            const int text = bytes().below(4);
            say("setText of the line");
            m_lineIsText = false;
            QLineEdit *line = it()->findChild<QLineEdit *>();
            return text == 0 ? line->selectAll() : line->setText(QString(text, QLatin1Char('x')));
        }
        default: {
            static const int digits[] = {Qt::Key_2, Qt::Key_3, Qt::Key_7, Qt::Key_0, Qt::Key_F3, Qt::Key_F4};
            const int key = digits[bytes().below(6)], times = bytes().below(6);
            say("type");
            for (int i = 0; i < times; ++i)
                strike(key);
        }
        }
    }

    virtual void check()
    {
        if (!widget())
            return;
        if (calmTime() > FlashTime)
            expect(litKeys() <= 1, "more than one key is lit");
        if (m_lineIsText && ++m_checks % ChecksPerReport == 0)
            checkReport();
    }

    virtual QWidget *fresh(QWidget *parent)
    {
        // A longer one scrolls in its line, by how much depends on the text before.
        m_text = bytes().word();
        m_mask = bytes().flag();
        m_keep = bytes().flag();
        m_select = bytes().flag();
        return SetterTarget<WidgetKeypad>::fresh(parent);
    }

    virtual void align(QWidget *widget)
    {
        m_lineIsText = false;
        m_keeps = m_keep;
        widget->setGeometry(0, 0, 220, 220);
        widget->hide();
        widget->show();
        static_cast<WidgetKeypad *>(widget)->setInitialLineText(m_text, m_mask, m_keep, m_select);
        widget->hide();
        widget->show();
    }

private:
    static void fill(WidgetKeypad *keypad, bool digits)
    {
        const char *const letters[] = {"1",     "abc2", "def3",  "ghi4", "jkl5", "mno6",
                                       "pqrs7", "tuv8", "wxyz9", "*",    "0",    "#"};
        for (int place = 0; place < 12; ++place) {
            const QString text = QLatin1String(letters[place]);
            keypad->setKeyText(0, place / 3, place % 3, digits ? text.right(1) : text);
            keypad->setKeyText(1, place / 3, place % 3, text.right(1));
        }
        for (int digit = 1; digit <= 9; ++digit)
            keypad->setKeyMap(Qt::Key_0 + digit, (digit - 1) / 3, (digit - 1) % 3);
        keypad->setKeyMap(Qt::Key_0, 3, 1);
        for (int page = 2; page < 6; ++page)
            keypad->enablePage(page, false);
        for (int item = 0; item < 4; ++item) {
            keypad->setItemStyle(WidgetKeypad::Item(item), WidgetKeypad::StateNormal, QLatin1String("color: white;"));
            keypad->setItemStyle(WidgetKeypad::Item(item), WidgetKeypad::StateSelected, QLatin1String("color: red;"));
        }
        keypad->setLineTextHeight(38);
        keypad->setInitialLineText(QString(), false, true, false);
    }

    int litKeys() const
    {
        int lit = 0;
        foreach (QLabel *label, widget()->findChildren<QLabel *>()) {
            if (label->styleSheet().endsWith(QLatin1String("border-style: none;"))
                && label->styleSheet().contains(QLatin1String("color: #1f1618;")))
                ++lit;
        }
        return lit;
    }

    void checkReport()
    {
        KeypadReport report;
        QPointer<WidgetKeypad> keypad = it();
        const QString line = keypad->findChild<QLineEdit *>()->text();
        const bool isFull = line.size() == keypad->findChild<QLineEdit *>()->maxLength();
        QObject::connect(keypad, SIGNAL(ready(QString)), &report, SLOT(take(QString)));
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Menu, Qt::NoModifier);
        QApplication::sendEvent(keypad, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Menu, Qt::NoModifier);
        QApplication::sendEvent(keypad, &release);
        // The last key, and a space string, may go beyond what the line takes.
        if (keypad && m_lineIsText)
            expect(report.m_text == line || (isFull && report.m_text.startsWith(line)),
                   "the line shows another text than there is");
    }

    bool m_lineIsText;
    bool m_keeps;
    int m_checks;
    QString m_text;
    bool m_mask;
    bool m_keep;
    bool m_select;
};

FUZZ_TARGET("widgetkeypad", WidgetKeypadTarget)

}

#include "widgetkeypad.moc"

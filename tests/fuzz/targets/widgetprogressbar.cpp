#include "target.h"
#include "widgetprogressbar.h"

#include <QProgressBar>

namespace {

class WidgetProgressBarTarget : public SetterTarget<WidgetProgressBar>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        return make([](QWidget *parent) { return new WidgetProgressBar(parent); });
    }

    /// A bar without a range moves as time passes, so a new one is at another place.
    virtual QWidget *fresh(QWidget *parent)
    {
        const QProgressBar *bar = it()->findChild<QProgressBar *>();
        return bar && bar->minimum() == bar->maximum() ? 0 : SetterTarget<WidgetProgressBar>::fresh(parent);
    }

    virtual void call()
    {
        const WidgetProgressBar::Item item = WidgetProgressBar::Item(bytes().index(4));
        switch (bytes().below(7)) {
        case 0: {
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            return set("setItemGeometry", [=](WidgetProgressBar *it) { it->setItemGeometry(item, x, y, w, h); });
        }
        case 1: {
            const int size = bytes().index(30);
            const bool bold = bytes().flag();
            return set("setItemFont", [=](WidgetProgressBar *it) { it->setItemFont(item, size, bold); });
        }
        case 2: {
            const QString style = sheet();
            return set("setItemStyle", [=](WidgetProgressBar *it) { it->setItemStyle(item, style); });
        }
        case 3: {
            const QString text = bytes().text();
            return set("setItemTitle", [=](WidgetProgressBar *it) { it->setItemTitle(text); });
        }
        case 4: {
            const int value = bytes().number();
            const bool space = bytes().flag();
            say("calcIntToString");
            QString text = it()->calcIntToString(value, space);
            text.remove(QLatin1Char(','));
            return expect(text == QString::number(value) + QLatin1String(space ? " " : ""), "the number is another one");
        }
        default: {
            const int use = bytes().number(), max = bytes().number();
            set("setItemUseMaxValue", [=](WidgetProgressBar *it) { it->setItemUseMaxValue(use, max); });
        }
        }
    }
};

FUZZ_TARGET("widgetprogressbar", WidgetProgressBarTarget)

}

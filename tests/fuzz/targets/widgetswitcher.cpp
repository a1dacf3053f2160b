#include "target.h"
#include "widgetswitcher.h"

#include <QLabel>

namespace {

const int EntryCount = 6;

class WidgetSwitcherTarget : public SetterTarget<WidgetSwitcher>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        m_labelsMoved = false;
        return make([this](QWidget *parent) {
            WidgetSwitcher *switcher = new WidgetSwitcher(parent, sounds());
            for (int entry = 0; entry < EntryCount; ++entry)
                switcher->setItemStyle(4, QString::fromLatin1("entry %1").arg(entry), QString(), entry);
            // A label that has never had a text takes its size from the toolkit's first font.
            switcher->selectItem(0);
            return switcher;
        });
    }

    virtual void call()
    {
        const int item = bytes().index(7), index = bytes().index(EntryCount);
        switch (bytes().below(10)) {
        case 0:
        case 1:
        case 2: {
            const QString style = item == 4 ? bytes().text() : sheet(), altStyle = sheet();
            return set("setItemStyle", [=](WidgetSwitcher *it) { it->setItemStyle(item, style, altStyle, index); });
        }
        case 3: {
            const int size = bytes().index(40);
            const bool bold = bytes().flag();
            const QString style = sheet();
            return set("setFontStyle", [=](WidgetSwitcher *it) { it->setFontStyle(item, size, bold, style); });
        }
        case 4: {
            // A label's place lasts until the layout acts again, whenever that is.
            m_labelsMoved = m_labelsMoved || (item >= 1 && item <= 4);
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            return set("setItemGeometry", [=](WidgetSwitcher *it) { it->setItemGeometry(item, x, y, w, h); });
        }
        case 5: {
            const int x = bytes().length(), y = bytes().length(), w = bytes().length(), h = bytes().length();
            return set("setBgGeometry", [=](WidgetSwitcher *it) { it->setBgGeometry(x, y, w, h); });
        }
        case 6: say("selectItem"); return it()->selectItem(index);
        case 7: {
            const bool selectable = bytes().flag();
            say("makeSelectable");
            return it()->makeSelectable(index, selectable);
        }
        case 8: return set("initDisplay", [](WidgetSwitcher *it) { it->initDisplay(); });
        default: set("setAutoPageGeometry", [](WidgetSwitcher *it) { it->setAutoPageGeometry(); });
        }
    }

    virtual QWidget *fresh(QWidget *parent)
    {
        m_entry = bytes().below(EntryCount);
        // The dots are laid out for the size that the switcher has now.
        set("setAutoPageGeometry", [](WidgetSwitcher *it) { it->setAutoPageGeometry(); });
        return m_labelsMoved ? 0 : SetterTarget<WidgetSwitcher>::fresh(parent);
    }

    virtual void align(QWidget *widget)
    {
        static_cast<WidgetSwitcher *>(widget)->selectItem(m_entry);
    }

private:
    bool m_labelsMoved;
    int m_entry;
};

FUZZ_TARGET("widgetswitcher", WidgetSwitcherTarget)

}

#include "target.h"
#include "widget.h"

namespace {

class WidgetTarget : public Target
{
protected:
    virtual QWidget *create(QWidget *parent)
    {
        say("create");
        return new Widget(parent, sounds());
    }

    virtual void call()
    {
        Widget *it = static_cast<Widget *>(widget());
        switch (bytes().below(4)) {
        case 0: {
            const int id = bytes().number();
            say("playSound");
            return it->playSound(id);
        }
        case 1:
            it->m_useFunctionKeys = bytes().flag();
            return say("m_useFunctionKeys");
        case 2: {
            const int key = bytes().flag() ? this->key() : bytes().number();
            say("isUpKey");
            const int meanings = it->isUpKey(key) + it->isDownKey(key) + it->isLeftKey(key) + it->isRightKey(key)
                + it->isOKKey(key);
            return expect(meanings <= 1, "a key means two things");
        }
        default: {
            const QString style = sheet();
            say("setStyleSheet");
            it->setStyleSheet(style);
        }
        }
    }
};

FUZZ_TARGET("widget", WidgetTarget)

}

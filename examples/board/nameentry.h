#ifndef NAMEENTRY_H
#define NAMEENTRY_H

#include "widgetkeypad.h"

/// Entry of a name: digits type, * and # change between small letters and capitals, F3 is a space and F4 deletes. OK
/// takes the name, escape leaves it as it was.
class NameEntry : public WidgetKeypad
{
    Q_OBJECT

public:
    NameEntry(QWidget *parent, const QString &name);

private Q_SLOTS:
    void turnPage(int key);
};

#endif

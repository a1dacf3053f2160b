#ifndef FORMCLASSES_H
#define FORMCLASSES_H

#include <vector>

class QWidget;

/// What the plug-in tells of a class of forms.
struct FormClass
{
    const char *libraryClass;  ///< whose header has the words of toolTip and whatsThis
    const char *name;
    const char *superclass;  ///< of the toolkit
    const char *header;
    const char *displayName;
    const char *objectName;
    const char *toolTip;
    const char *whatsThis;
    const char *properties;  ///< of a widget that comes out of the widget box, as in a form
    QWidget *(*create)(QWidget *parent);
    void (*showSample)(QWidget *widget);  ///< in Designer only, what the application will show; may be null
};

const std::vector<FormClass> &formClasses();

#endif

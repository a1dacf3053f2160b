#ifndef TEXTS_H
#define TEXTS_H

#include <QString>

/// \a english in the language in use: Arabic while StringRC::m_rightToLeft is set, as far as the table goes.
QString text(const char *english);

/// \a title and \a value as a row shows them. The toolkit puts texts that are written from right to left at the right
/// end of their label, where a row has its arrows: this keeps them clear of each other.
QString rowTitle(const QString &title);
QString rowValue(const QString &value);

#endif

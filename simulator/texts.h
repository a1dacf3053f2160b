#ifndef TEXTS_H
#define TEXTS_H

#include <QString>

/// Whether texts are written from right to left: StringRC::m_rightToLeft.
bool writesRightToLeft();

/// \a english in the language in use: Arabic where texts are written from right to left, as far as the table goes.
QString text(const char *english);

/// \a text for a place that may be on either side: where texts are written from right to left, the toolkit puts only
/// those to the right that begin with a letter of such a language, and this also all others, such as numbers.
QString fromWritingSide(const QString &text);

#endif

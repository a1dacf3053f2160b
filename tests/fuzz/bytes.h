#ifndef FUZZ_BYTES_H
#define FUZZ_BYTES_H

#include <QByteArray>
#include <QRect>
#include <QString>
#include <QStringList>

#include <cstddef>

/// The bytes of an input, taken one after the other as what the steps need. Where they are at their end, all is 0.
class Bytes
{
public:
    Bytes(const unsigned char *data, size_t size);

    /// Keeps lengths to what the toolkit can paint.
    void setModest(bool modest) { m_modest = modest; }

    bool atEnd() const { return m_place >= m_size; }

    int byte();
    bool flag();
    int below(int count);

    /// Any int: mostly a small one, otherwise one of the ends, or of no meaning at all.
    int number();

    /// Mostly from -1 to \a count, otherwise any int.
    int index(int count);

    /// A length that is seen on a screen, or any int.
    int length();

    /// One made of such lengths, or with its corners anywhere.
    QRect rect();

    /// Any text: empty, null, with zeros, half a surrogate pair, written from right to left, of 100,000 characters (once).
    QString text();

    /// A text of a few plain characters.
    QString word();

    /// A style sheet that says what it looks like: giving it later or earlier, shown or hidden, makes no difference.
    QString plainSheet();

    /// Any style sheet, good or bad.
    QString sheet();

    /// What was taken since the last call, for people.
    QString takeNotes();

private:
    QByteArray raw(int most);

    /// Whether the text that comes next is huge: at most one is, because each costs a lot of time wherever it is shown.
    bool takesHuge();

    const unsigned char *m_data;
    size_t m_size;
    size_t m_place;
    bool m_modest;
    bool m_hadHuge;
    QStringList m_notes;
};

#endif

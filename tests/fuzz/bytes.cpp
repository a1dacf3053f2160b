#include "bytes.h"

#include <climits>

namespace {

const int HugeLength = 100000;

QString fromUnits(std::initializer_list<ushort> units)
{
    QString text;
    for (ushort unit : units)
        text += QChar(unit);
    return text;
}

QString hugeText(const QString &unit)
{
    return unit.repeated(HugeLength / unit.size());
}

QString noted(const QString &text)
{
    QString shown;
    for (const QChar character : text.left(40)) {
        const ushort code = character.unicode();
        if (code >= 0x20 && code < 0x7f)
            shown += character;
        else
            shown += QString::fromLatin1("\\x%1").arg(code, 0, 16);
    }
    return QString::fromLatin1("\"%1\"%2").arg(shown, text.size() > 40 ? QString::fromLatin1("...") : QString());
}

}

Bytes::Bytes(const unsigned char *data, size_t size) : m_data(data), m_size(size), m_place(0), m_modest(false), m_hadHuge(false)
{
}

int Bytes::byte()
{
    return atEnd() ? 0 : m_data[m_place++];
}

bool Bytes::flag()
{
    return below(2) == 1;
}

int Bytes::below(int count)
{
    const int value = byte() % count;
    m_notes << QString::number(value);
    return value;
}

int Bytes::number()
{
    static const int ends[] = {INT_MIN, INT_MIN + 1, -1000, -1, 0, 1, 9, 10, 99, 100, 999, 1000, 65535, 65536, 1000000,
                               INT_MAX - 1, INT_MAX};
    const int kind = byte();
    int value = 0;
    if (kind < 160) {
        value = kind - 32;
    } else if (kind < 240) {
        value = ends[size_t(kind - 160) % (sizeof ends / sizeof *ends)];
    } else {
        unsigned bits = 0;
        for (int i = 0; i < 4; ++i)
            bits = bits << 8 | unsigned(byte());
        value = int(bits);
    }
    m_notes << QString::number(value);
    return value;
}

int Bytes::index(int count)
{
    const int kind = byte();
    if (kind >= 224)
        return number();
    const int value = kind % (count + 2) - 1;
    m_notes << QString::number(value);
    return value;
}

int Bytes::length()
{
    const int kind = byte();
    if (kind >= 240)
        return m_modest ? number() % 2000 : number();
    m_notes << QString::number(kind - 10);
    return kind - 10;
}

QRect Bytes::rect()
{
    const int x = length(), y = length(), w = length(), h = length();
    const bool fits = qMax(qAbs(qint64(x)) + qAbs(qint64(w)), qAbs(qint64(y)) + qAbs(qint64(h))) < INT_MAX;
    return fits ? QRect(x, y, w, h) : QRect(QPoint(x, y), QPoint(w, h));
}

bool Bytes::takesHuge()
{
    if (atEnd() || m_hadHuge || byte() % 8 != 0)
        return false;
    m_hadHuge = true;
    return true;
}

QByteArray Bytes::raw(int most)
{
    const int size = byte() % (most + 1);
    QByteArray bytes;
    while (bytes.size() < size && !atEnd())
        bytes += char(byte());
    return bytes;
}

QString Bytes::word()
{
    const int length = byte() % 12;
    QString text;
    while (text.size() < length)
        text += QLatin1Char("abcdeghikmnoprstu 0123456789.,'-"[byte() % 32]);
    m_notes << noted(text);
    return text;
}

QString Bytes::text()
{
    const int kind = byte();
    QString text;
    switch (kind < 128 ? 100 : kind % 16) {
    case 100: {
        return word();
    }
    case 0: break;
    case 1: text = QString::fromLatin1(""); break;
    case 2: text = fromUnits({'a', 0, 'b', 0}); break;
    case 3: text = fromUnits({0xd83d}); break;
    case 4: text = fromUnits({'x', 0xde00, 'y', 0xd83d}); break;
    case 5: text = fromUnits({0xd83d, 0xde00, ' ', 0xd83d, 0xde00}); break;
    case 6: text = fromUnits({0x5e9, 0x5dc, 0x5d5, 0x5dd, ' ', '1', '2', ' ', 0x645, 0x631, 0x62d}); break;
    case 7: text = fromUnits({'e', 0x301, 0x302, 0x303, 0x304, 'n', 0x30a}); break;
    case 8: text = fromUnits({0x202e, 'a', 'b', 0x2066, 'c', 0xfeff, 0x200d, 0xffff}); break;
    case 9: text = QString::fromLatin1("<b>bold</b><img src=x>&amp;&&x"); break;
    case 10: text = QString::fromLatin1("one\ntwo\r\nthree\tfour\v\f\x1b\x7f"); break;
    case 11: text = QString::fromLatin1("A title that is much too long for a row of this width"); break;
    case 12: text = QString::fromLatin1("%1 %n %s %d %s%s%s"); break;
    case 13: text = takesHuge() ? hugeText("words ") : QString::fromLatin1("words ").repeated(40); break;
    case 14: text = takesHuge() ? hugeText(fromUnits({0x5d0})) : fromUnits({0x301}).repeated(300); break;
    default: {
        const QByteArray units = raw(64);
        for (int i = 0; i + 1 < units.size(); i += 2)
            text += QChar(ushort(uchar(units[i]) << 8 | uchar(units[i + 1])));
    }
    }
    m_notes << noted(text);
    return text;
}

QString Bytes::plainSheet()
{
    static const char *const sheets[] = {
        "",
        "background-color: #474242;",
        "background-color: red; color: white;",
        "color: #f7ce86;",
        "image: url(:/resource/images_l2/page_off.png);",
        "image: url(:/resource/images_l2/arrow_next_nor.png);",
        "image: url(:/no such picture.png);",
        "background-image: url(:/resource/images_l2/number_bg.png);",
        "border-image: url(:/resource/images_l2/tna_bg.png);",
        "background-color: rgba(0, 0, 255, 128);",
        "background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 white, stop:1 black);",
        "background-color: transparent; border-style: none;",
    };
    const QString sheet = QLatin1String(sheets[size_t(byte()) % (sizeof sheets / sizeof *sheets)]);
    m_notes << noted(sheet);
    return sheet;
}

QString Bytes::sheet()
{
    static const char *const sheets[] = {
        "font: bold 30pt \"No Such Family\"; padding: 40px; margin: -20px;",
        "QLabel { color: red } QLabel:focus { color: blue } * { min-width: 500px; }",
        "QWidget { background: url(:/resource/images_l2/tna_bg.png) fixed; qproperty-text: \"set\"; }",
        "qproperty-geometry: rect(0 0 5 5); qproperty-visible: false;",
        "color: #12; image: url(; background-image: url(\"",
        "{{{{}}}}",
        "}",
        "color: red",
        "color: red; /* never ends",
        "max-height: 0px; max-width: 0px; width: -1; height: 99999999999999999999px;",
        "image: url(:/resource/images_l2/tna_bg.png:/resource); border-image: url() 1 2 3 4 5 6;",
        "@media print { * { color: red } } !important;",
        "border-radius: 1000000000px; border: 19px solid rgba(1, 2, 3, 4, 5, 6);",
        "image: url(:/resource/images_l2);",
        "image: url(file:///dev/null);",
    };
    const int kind = byte();
    QString sheet;
    if (kind < 128)
        return plainSheet();
    if (kind < 224)
        sheet = QLatin1String(sheets[size_t(kind) % (sizeof sheets / sizeof *sheets)]);
    else if (kind == 224)
        sheet = takesHuge() ? hugeText(QString::fromLatin1("color: red; ")) : QString::fromLatin1(";;;;");
    else if (kind == 225)
        sheet = takesHuge() ? hugeText(QString::fromLatin1("{ ")) : QString::fromLatin1("{{");
    else if (kind < 230)
        return text();
    else  // where a border is wider than half of a border-image, the toolkit paints what lies beside the picture in memory
        sheet = QString::fromLatin1(raw(255)).remove(QLatin1String("border"), Qt::CaseInsensitive);
    m_notes << noted(sheet);
    return sheet;
}

QString Bytes::takeNotes()
{
    const QString notes = m_notes.join(QString::fromLatin1(", "));
    m_notes.clear();
    return notes;
}

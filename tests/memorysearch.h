#ifndef MEMORYSEARCH_H
#define MEMORYSEARCH_H

// Looks through the memory of the own process for a text that should be gone.

#include <QChar>
#include <QString>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <utility>

/// A text of different characters from U+00C0 to U+00FF, which are the ones that differ in Latin-1, UTF-8 and UTF-16. It
/// stands nowhere as it is: each character is made when it is asked for.
class SearchedText
{
public:
    static constexpr int Length = 20;

    /// Each \a number is another text.
    explicit SearchedText(unsigned number)
    {
        unsigned char codes[0x40];
        for (int i = 0; i < 0x40; ++i)
            codes[i] = (0xc0 + i) ^ Key;
        std::mt19937 random(number);
        for (int i = 0; i < Length; ++i) {
            std::swap(codes[i], codes[i + int(random() % unsigned(0x40 - i))]);
            m_encoded[i] = codes[i];
        }
    }

    int code(int i) const { return m_encoded[i] ^ Key; }
    QChar at(int i) const { return QChar(ushort(code(i))); }

    /// All of it, in one place of memory.
    QString copy() const
    {
        QString text(Length, QChar());
        for (int i = 0; i < Length; ++i)
            text[i] = at(i);
        return text;
    }

    /// -1 if \a code is none of its characters.
    int indexOf(int code) const
    {
        const unsigned char *end = m_encoded + Length;
        const unsigned char *found = std::find(m_encoded, end, code ^ Key);
        return found == end ? -1 : int(found - m_encoded);
    }

private:
    static constexpr int Key = 0x95;
    unsigned char m_encoded[Length];
};

/// Searches all memory that the process can write to and has to itself: heaps, globals and what of the stack is no
/// longer in use.
class MemorySearch
{
public:
    explicit MemorySearch(const SearchedText &text)
        : m_text(text)
    {
        for (int code = 0; code < 256; ++code)
            m_index[code] = static_cast<signed char>(text.indexOf(code));
        m_memory = open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
        // Shared, so that the search does not come across what it has read.
        void *block = mmap(nullptr, BlockSize, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (m_memory < 0 || block == MAP_FAILED)
            qFatal("The process cannot look at its own memory.");
        m_block = static_cast<unsigned char *>(block);
    }

    MemorySearch(const MemorySearch &) = delete;
    MemorySearch &operator=(const MemorySearch &) = delete;

    ~MemorySearch()
    {
        close(m_memory);
        munmap(m_block, BlockSize);
    }

    /// Where the text or a part of it stands, as one line for a person; empty if it is nowhere.
    ///
    /// A part is four characters that follow each other, in UTF-8 or UTF-16. In Latin-1, or as numbers that stand in
    /// records of up to 32 bytes as an undo history has them, forwards or backwards, it takes six to be no accident.
    QString finds()
    {
        searchAll();
        return report();
    }

private:
    struct Encoding
    {
        const char *name;
        int stride;
        int leastRun;
    };

    static constexpr Encoding encodings[] = {
        {"UTF-16", 2, 4},         {"numbers every 4", 4, 6},   {"numbers every 8", 8, 6},   {"numbers every 12", 12, 6},
        {"numbers every 16", 16, 6}, {"numbers every 20", 20, 6}, {"numbers every 24", 24, 6}, {"numbers every 32", 32, 6},
    };
    static constexpr int EncodingCount = int(sizeof encodings / sizeof encodings[0]);
    static constexpr int LongestTail = 32 * SearchedText::Length;
    static constexpr size_t BlockSize = 1 << 20;
    // What the search itself may have on the stack.
    static constexpr uintptr_t OwnFrames = 4096;

    void searchAll()
    {
        m_searched = 0;
        m_found = 0;
        m_longest = 0;
        char *line = nullptr;
        size_t size = 0;
        FILE *maps = fopen("/proc/self/maps", "re");
        while (maps && getline(&line, &size, maps) > 0) {
            unsigned long begin = 0;
            unsigned long end = 0;
            char permissions[5] = "";
            int name = 0;
            if (sscanf(line, "%lx-%lx %4s %*s %*s %*s %n", &begin, &end, permissions, &name) < 3)
                continue;
            if (strcmp(permissions, "rw-p") != 0)
                continue;
            const uintptr_t here = reinterpret_cast<uintptr_t>(&begin);
            if (here >= begin && here < end)
                end = here - OwnFrames;
            searchRegion(begin, end, line + name);
        }
        if (maps)
            fclose(maps);
        free(line);
    }

    void searchRegion(uintptr_t begin, uintptr_t end, const char *name)
    {
        while (begin < end) {
            const size_t wanted = std::min<size_t>(BlockSize, end - begin);
            const ssize_t got = pread(m_memory, m_block, wanted, off_t(begin));
            if (got <= 0)
                return;
            searchBlock(size_t(got), name);
            m_searched += size_t(got);
            if (size_t(got) <= LongestTail)
                return;
            // What goes on in the next block is looked at as a whole there.
            begin += uintptr_t(got) == end - begin ? uintptr_t(got) : uintptr_t(got) - LongestTail;
        }
    }

    void searchBlock(size_t size, const char *name)
    {
        for (size_t at = 0; at < size; ++at) {
            const unsigned char byte = m_block[at];
            if (byte == 0xc3)
                count(utf8Run(at, size), 4, "UTF-8", name);
            const int index = m_index[byte];
            if (index < 0)
                continue;
            count(run(at, size, 1, 1, 1), 6, "Latin-1", name);
            if (at % 2 != 0 || at + 1 >= size || m_block[at + 1] != 0)
                continue;
            for (const Encoding &encoding : encodings) {
                for (int direction : {1, -1})
                    count(run(at, size, encoding.stride, direction, 2), encoding.leastRun, encoding.name, name);
            }
        }
    }

    /// How many characters follow each other from \a at on, one every \a stride bytes, each \a width bytes wide.
    int run(size_t at, size_t size, int stride, int direction, int width) const
    {
        int index = m_index[m_block[at]];
        int length = 0;
        while (index >= 0 && index < SearchedText::Length && at + size_t(width) <= size
               && m_block[at] == m_text.code(index) && (width == 1 || m_block[at + 1] == 0)) {
            ++length;
            index += direction;
            at += size_t(stride);
        }
        return length;
    }

    int utf8Run(size_t at, size_t size) const
    {
        int index = at + 1 < size ? m_index[m_block[at + 1] | 0x40] : -1;
        int length = 0;
        while (index >= 0 && index < SearchedText::Length && at + 2 <= size && m_block[at] == 0xc3
               && (m_block[at + 1] | 0x40) == m_text.code(index)) {
            ++length;
            ++index;
            at += 2;
        }
        return length;
    }

    void count(int length, int leastRun, const char *encoding, const char *name)
    {
        if (length < leastRun)
            return;
        ++m_found;
        if (length <= m_longest)
            return;
        m_longest = length;
        m_encoding = encoding;
        snprintf(m_place, sizeof m_place, "%.*s", int(strcspn(name, "\n")), name);
    }

    QString report() const
    {
        if (m_searched == 0)
            return QStringLiteral("there was nothing to search");
        if (m_found == 0)
            return QString();
        return QString("%1 characters of %2 in %3, and %4 more finds").arg(m_longest).arg(m_encoding)
            .arg(*m_place ? m_place : "memory without a name").arg(m_found - 1);
    }

    const SearchedText m_text;
    signed char m_index[256];
    int m_memory;
    unsigned char *m_block;
    size_t m_searched = 0;
    int m_found = 0;
    int m_longest = 0;
    const char *m_encoding = "";
    char m_place[64] = "";
};

#endif

#ifndef THREADSHARED_H
#define THREADSHARED_H

/// A value that one thread may write while others read it, used like a plain variable:
///
///     thread.m_stop = true;
///     if (thread.m_stop) ...
///
/// \a T is bool or an integer that the processor loads and stores in one piece. Every read and every write is whole,
/// takes no lock, and takes no more room than a \a T. Who reads a value also sees what the writer did before it. Two
/// accesses in a row are two accesses: "if (value) value = false;" may miss what was written in between.
///
/// Made of the compiler's own atomic operations, which GCC has from 4.7 on.
template <typename T>
class ThreadShared
{
public:
    explicit ThreadShared(T value = T())
        : m_value(value)
    {
    }

    ThreadShared(const ThreadShared &other)
        : m_value(other)
    {
    }

    T operator=(T value)
    {
        __atomic_store_n(&m_value, value, __ATOMIC_RELEASE);
        return value;
    }

    T operator=(const ThreadShared &other)
    {
        return *this = T(other);
    }

    operator T() const
    {
        return __atomic_load_n(&m_value, __ATOMIC_ACQUIRE);
    }

private:
    T m_value;
};

#endif

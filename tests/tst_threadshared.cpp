#include "threadshared.h"

#include <QtTest>

#include <thread>

class TestThreadShared : public QObject
{
    Q_OBJECT

private slots:
    void takesNoMoreRoomThanItsType();
    void takesNoLock();
    void isUsedLikeABool();
    void isUsedLikeANumber();
    void copiesTheValue();
    void startsWithZero();
    void readsAreWhole();
    void readersSeeWhatCameBeforeTheWrite();
};

void TestThreadShared::takesNoMoreRoomThanItsType()
{
    QCOMPARE(sizeof(ThreadShared<bool>), size_t(1));
    QCOMPARE(sizeof(ThreadShared<int>), sizeof(int));
    QCOMPARE(sizeof(ThreadShared<unsigned long>), sizeof(unsigned long));
}

void TestThreadShared::takesNoLock()
{
    QVERIFY(__atomic_always_lock_free(sizeof(ThreadShared<bool>), nullptr));
    QVERIFY(__atomic_always_lock_free(sizeof(ThreadShared<int>), nullptr));
    QVERIFY(__atomic_always_lock_free(sizeof(ThreadShared<unsigned long>), nullptr));
}

void TestThreadShared::isUsedLikeABool()
{
    ThreadShared<bool> flag;
    flag = true;
    if (!flag)
        QFAIL("set, but reads as not set");
    QVERIFY(flag == true);
    QVERIFY(flag != false);
    const bool read = flag;
    QCOMPARE(read, true);
    QCOMPARE(flag ? 1 : 2, 1);

    const bool result = flag = false;
    QCOMPARE(result, false);
    QCOMPARE(bool(flag), false);
    flag = !flag;
    QCOMPARE(bool(flag), true);
}

void TestThreadShared::isUsedLikeANumber()
{
    ThreadShared<unsigned long> interval(100);
    QVERIFY(interval == 100);
    interval = 50;
    QVERIFY(interval < 51);
    QCOMPARE(interval + 1, 51ul);
    const ThreadShared<int> least(-1);
    QVERIFY(least < 0);
}

void TestThreadShared::copiesTheValue()
{
    ThreadShared<int> original(7);
    ThreadShared<int> copy(original);
    ThreadShared<int> assigned;
    assigned = original;
    original = 8;
    QCOMPARE(int(copy), 7);
    QCOMPARE(int(assigned), 7);
}

void TestThreadShared::startsWithZero()
{
    QCOMPARE(bool(ThreadShared<bool>()), false);
    QCOMPARE(int(ThreadShared<int>()), 0);
}

void TestThreadShared::readsAreWhole()
{
    ThreadShared<unsigned long> value(0);
    ThreadShared<bool> done(false);
    std::thread writer([&] {
        for (int i = 0; i < 200000; ++i)
            value = i % 2 ? ~0ul : 0ul;
        done = true;
    });
    int torn = 0;
    while (!done) {
        const unsigned long read = value;
        if (read != 0ul && read != ~0ul)
            ++torn;
    }
    writer.join();
    QCOMPARE(torn, 0);
}

void TestThreadShared::readersSeeWhatCameBeforeTheWrite()
{
    int message = 0;
    ThreadShared<bool> ready(false);
    std::thread writer([&] {
        message = 42;
        ready = true;
    });
    while (!ready)
        std::this_thread::yield();
    const int read = message;
    writer.join();
    QCOMPARE(read, 42);
}

QTEST_APPLESS_MAIN(TestThreadShared)
#include "tst_threadshared.moc"

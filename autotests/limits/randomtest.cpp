/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "describe.h"
#include "limitsfixtures.h"
#include "limitsmodel.h"

#include <QTest>

#include <initializer_list>
#include <random>

namespace
{
/** Pseudo-random limits files. There are few words, so that they match often. */
class RandomLimits
{
public:
    explicit RandomLimits(unsigned seed)
        : m_random(seed)
    {
    }

    QByteArray file()
    {
        QByteArray lines;
        for (int i = below(30); i > 0; --i) {
            lines += oneIn(6) ? oddLine() : rule();
            lines += oneOf({"\n", "\n", "\n", "\n", "\n", "\r\n", " \t\n", "\n\n"});
        }
        return oneIn(3) ? lines + rule() : lines;
    }

    QMap<QString, QByteArray> dropIns()
    {
        QMap<QString, QByteArray> files;
        for (int i = below(4); i > 0; --i) {
            files.insert(QString::fromLatin1(oneOf({"a", "B", "b.conf", "Z.conf", "README", "10-x", "9-x"})), file());
        }
        return files;
    }

private:
    int below(int bound)
    {
        return static_cast<int>(m_random() % static_cast<unsigned>(bound));
    }

    bool oneIn(int count)
    {
        return below(count) == 0;
    }

    const char *oneOf(std::initializer_list<const char *> texts)
    {
        return texts.begin()[below(static_cast<int>(texts.size()))];
    }

    const char *space()
    {
        return oneIn(20) ? oneOf({"\t", "  \t", "\xa0", "", "\v "}) : oneOf({" ", " ", "  ", "     "});
    }

    const char *domain()
    {
        return oneOf({"*",      "root",   "toor",     "alice",     "bob",     "carol",  "@root",  "@staff",
                      "@audio", "@wheel", "%staff",   "%audio",    "%wheel",  "%root",  "//://",  "@//://",
                      "//d://", "@//dd:", "@//d://d", "//:// ",    "//://x",  "1:2",    "@0:",    "//:",
                      "x//://", "@",      "ren\xe9",  "1000:2000", "@@//://", "//x://", "@//://d"});
    }

    const char *item()
    {
        return oneOf({"core", "nproc", "maxlogins", "maxlogins", "maxsyslogins", "chroot", "bogus", "nonewprivs"});
    }

    const char *value()
    {
        return oneOf({"0",           "1",          "2",           "-1",          "+3",         "-0",     "007",
                      "unlimited",   "infinity",   "Unlimited",   "infinity.",   "2147483647", "0x10",   "2147483648",
                      "-2147483648", "4294967296", "-2147483649", "99999999999", "/",          "/srv/x", "10k",
                      "1.0",         "1e3",        "1,000",       "--1",         "+-1",        "-",      "+",
                      "5\t",         "\t5",        "5\t5",        "\xa0\x35",    "5\x85",      "\xb2",   "5\v"});
    }

    QByteArray rule()
    {
        QByteArray line = oneIn(8) ? " " : "";
        line += domain();
        line += space();
        line += oneOf({"soft", "hard", "-", "both"});
        line += space();
        line += item();
        line += space();
        line += value();
        line += oneOf({"", "", "", "", " ", " # comment", "\t# comment", " x y"});
        return line;
    }

    QByteArray oddLine()
    {
        switch (below(4)) {
        case 0:
            return oneOf({"", "#", "# comment", "  # * - core 1", "* soft core", "alice", "\t"});
        case 1:
            return rule().prepend(oneOf({"#", " #", "\t"}));
        case 2: {
            QByteArray line = rule();
            const int position = below(line.size());
            line[position] = oneIn(2) ? '\0' : static_cast<char>(below(256));
            return line;
        }
        default: {
            QByteArray line(below(40), ' ');
            for (char &byte : line) {
                byte = static_cast<char>(below(256));
            }
            return line;
        }
        }
    }

    std::mt19937 m_random;
};
}

class LimitsRandomTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void agreesWithPlainModel_data();
    void agreesWithPlainModel();

private:
    QList<UserInfo> m_users;
    QList<GroupInfo> m_groups;
};

void LimitsRandomTest::initTestCase()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("root:x:0:0::/:\n"
                         "toor:x:0:50::/:\n"
                         "alice:x:1000:0::/:\n"
                         "bob:x:1001:50::/:\n"
                         "carol:x:1002:29::/:\n"
                         "ren\xe9:x:1003:4242::/:\n",
                         "root:x:0:\n"
                         "ormel-admin:x:27:\n"
                         "staff:x:50:alice,carol\n"
                         "audio:x:29:bob,toor\n"
                         "wheel:x:10:alice,bob,root\n"
                         "null:x:0:carol\n");
    m_users = UserInfo::getUsers() + QList<UserInfo>{UserInfo()};
    m_groups = GroupInfo::getGroups() + QList<GroupInfo>{GroupInfo()};
    QCOMPARE(m_users.size(), 7);
    QCOMPARE(m_groups.size(), 7);
}

void LimitsRandomTest::agreesWithPlainModel_data()
{
    QTest::addColumn<unsigned>("firstSeed");

    for (unsigned seed = 0; seed < 4000; seed += 400) {
        QTest::addRow("seeds %u to %u", seed, seed + 399) << seed;
    }
}

void LimitsRandomTest::agreesWithPlainModel()
{
    QFETCH(unsigned, firstSeed);

    clearLimits();
    const QString items[] = {
        QStringLiteral("core"),
        QStringLiteral("nproc"),
        QStringLiteral("maxlogins"),
        QStringLiteral("maxsyslogins"),
        QStringLiteral("chroot"),
        QStringLiteral("bogus"),
    };
    int rules = 0;
    int values = 0;
    for (unsigned seed = firstSeed; seed < firstSeed + 400; ++seed) {
        RandomLimits random(seed);
        const QByteArray mainFile = random.file();
        const QMap<QString, QByteArray> dropIns = random.dropIns();
        LimitsModel expected;
        expected.read(mainFile);
        Sandbox::write(limitsPath(), mainFile);
        QByteArray files = "seed " + QByteArray::number(seed) + '\n' + mainFile;
        for (auto dropIn = dropIns.begin(); dropIn != dropIns.end(); ++dropIn) {
            expected.read(*dropIn);
            Sandbox::write(dropInPath(dropIn.key()), *dropIn);
            files += "\n--\n" + *dropIn;
        }

        const LimitsParser limits = readLimits();
        QVERIFY2(describe(limits.fields()) == expected.rules(), files.constData());
        rules += limits.fields().size();
        for (const QString &item : items) {
            for (const UserInfo &user : qAsConst(m_users)) {
                const QString value = describe(limits.getItem(user, item));
                QVERIFY2(value == expected.valueFor(user, item),
                         qPrintable(user.name() + item + QString::fromLatin1(files)));
                values += value != QLatin1String("null");
            }
            for (const GroupInfo &group : qAsConst(m_groups)) {
                const QString value = describe(limits.getItem(group, item));
                QVERIFY2(value == expected.valueFor(group, item),
                         qPrintable(group.name() + item + QString::fromLatin1(files)));
                values += value != QLatin1String("null");
            }
        }
        for (auto dropIn = dropIns.begin(); dropIn != dropIns.end(); ++dropIn) {
            Sandbox::remove(dropInPath(dropIn.key()));
        }
    }
    QVERIFY(rules > 500);
    QVERIFY(values > 500);
}

QTEST_GUILESS_MAIN(LimitsRandomTest)

#include "randomtest.moc"

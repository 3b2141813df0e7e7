/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "randomsessionlimits.h"

RandomSessionLimits::RandomSessionLimits(unsigned seed)
    : m_random(seed)
{
}

int RandomSessionLimits::below(int bound)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(bound));
}

bool RandomSessionLimits::oneIn(int count)
{
    return below(count) == 0;
}

QByteArray RandomSessionLimits::oneOf(std::initializer_list<const char *> texts)
{
    return texts.begin()[below(static_cast<int>(texts.size()))];
}

QByteArray RandomSessionLimits::space()
{
    return oneIn(20) ? oneOf({"\v", " \r", "\f ", "\t\v\t", "\xa0"}) : oneOf({" ", " ", "\t", "  ", "\t\t", " \t "});
}

QByteArray RandomSessionLimits::domain()
{
    if (oneIn(3)) {
        return oneOf({":0",
                      ":1001",
                      "0:",
                      "1001:",
                      "1001:1005",
                      "1006:1001",
                      "0:99999",
                      "@:0",
                      "@:50",
                      "@:60",
                      "@:61",
                      "@:100",
                      "@:4242",
                      "@:1001",
                      "@0:",
                      "@100:",
                      "@50:100",
                      "@101:1",
                      "@4242:4242",
                      "%:0",
                      "%:50",
                      "%:4242",
                      "%:1001",
                      "%0:100",
                      "%50:",
                      "%1001:",
                      ":",
                      "@:",
                      "%:",
                      "1001:x",
                      "x:1001",
                      "1:2:3",
                      "-5:1001",
                      "+1:+2000",
                      "0x1:1005",
                      "4294968297:",
                      "1001:-1",
                      "99999999999:",
                      ":4294967290",
                      "@:-1",
                      "99999999999999999999:",
                      ":99999999999999999999",
                      "*:5",
                      "1001: "});
    }
    return oneOf({"*",       "*",       "*",     "root",   "toor",  "alice",  "alice",  "bob",    "carol",
                  "dave",    "nobody",  "@root", "@staff", "@twin", "@audio", "@users", "@alice", "@twice",
                  "@nosuch", "@",       "@@",    "%",      "%",     "%staff", "%root",  "%users", "%audio",
                  "%twin",   "%nosuch", "1001",  "@1001",  "Alice", "**"});
}

QByteArray RandomSessionLimits::type()
{
    return oneIn(12) ? oneOf({"Soft", "HARD", "both", "--", "soft,hard", "0"}) : oneOf({"soft", "hard", "-", "-"});
}

QByteArray RandomSessionLimits::item()
{
    if (oneIn(4)) {
        return oneOf({"maxlogins", "maxsyslogins", "nonewprivs", "priority", "chroot", "MaxLogins", "nice", "nice"});
    }
    if (oneIn(12)) {
        return oneOf({"bogus", "rttime", "NOFILE", "nofiles", "-", "as1", "Core"});
    }
    return oneOf({"nofile",
                  "nofile",
                  "nproc",
                  "nproc",
                  "core",
                  "as",
                  "data",
                  "fsize",
                  "memlock",
                  "rss",
                  "stack",
                  "cpu",
                  "locks",
                  "sigpending",
                  "msgqueue",
                  "rtprio"});
}

QByteArray RandomSessionLimits::value()
{
    if (oneIn(3)) {
        return oneOf({"unlimited",
                      "infinity",
                      "-1",
                      "-",
                      "UNLIMITED",
                      "Infinity",
                      "10k",
                      "0x10",
                      "+7",
                      "-7",
                      "--1",
                      "+-1",
                      "abc",
                      "1.5",
                      "/srv/Jail",
                      "jail",
                      "-0",
                      "00",
                      "01",
                      "unlimited5",
                      "18446744073709551615",
                      "18446744073709551616",
                      "18014398509481983",
                      "18014398509481984",
                      "307445734561825859",
                      "307445734561825860",
                      "307445734561825861",
                      "5000000000",
                      "2147483648",
                      "-9223372036854775809",
                      "99999999999999999999999",
                      "1048576",
                      "1048577",
                      "5#6",
                      "\\"});
    }
    return oneOf({"0", "1", "2", "3", "4", "5", "17", "19", "20", "-5", "-20", "-21", "64", "1000", "4096", "65536"});
}

QByteArray RandomSessionLimits::rule()
{
    return domain() + space() + type() + space() + item() + space() + value() + QByteArray(oneIn(8) ? "  # rest" : "");
}

QByteArray RandomSessionLimits::oddLine()
{
    if (oneIn(12)) {
        return domain() + space() + oneOf({"-", "-x", "- ", "-\r", "hard"});
    }
    if (oneIn(8)) {
        return longLine();
    }
    return oneOf({"",
                  " ",
                  "#",
                  "# * hard nproc 1",
                  "\t# x",
                  "*",
                  "* hard",
                  "* hard nproc",
                  "\f",
                  "\r",
                  "#\\",
                  "\\",
                  " \v "})
        + (oneIn(3) ? QByteArray("\0* hard nproc 3", 15) : QByteArray());
}

QByteArray RandomSessionLimits::longLine()
{
    const int length = 1000 + below(60);
    switch (below(4)) {
    case 0:
        return QByteArray(length, ' ') + rule();
    case 1:
        return QByteArray(length, '#') + rule();
    case 2:
        return "* hard nproc " + QByteArray(length, '0') + '7';
    default:
        return rule() + QByteArray(length, ' ') + rule() + QByteArray(length, '\t') + rule();
    }
}

QByteArray RandomSessionLimits::file()
{
    QByteArray lines;
    for (int i = below(14); i > 0; --i) {
        lines += (oneIn(7) ? QByteArray(below(3), ' ') : QByteArray()) + (oneIn(6) ? oddLine() : rule());
        lines += oneOf({"\n", "\n", "\n", "\n", "\n", "\r\n", " \t\n", "\n\n"});
    }
    return oneIn(3) ? lines + rule() : lines;
}

QMap<QString, QByteArray> RandomSessionLimits::dropIns()
{
    QMap<QString, QByteArray> files;
    for (int i = below(4); i > 0; --i) {
        const QByteArray name = oneOf({"a.conf",
                                       "B.conf",
                                       "b.conf",
                                       "Z.conf",
                                       "README",
                                       "10-x.conf",
                                       "9-x.conf",
                                       ".hidden.conf",
                                       "old.conf.dpkg-old",
                                       "A.CONF",
                                       "a-b.conf",
                                       "a.b.conf",
                                       "_.conf"});
        files.insert(QString::fromLatin1(name), file());
    }
    return files;
}

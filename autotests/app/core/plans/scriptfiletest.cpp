/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "scriptfile.h"

#include "filecontent.h"
#include "plan.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

namespace
{
/** The permission bits of a file. */
uint modeOf(const QString &path)
{
    struct stat status;
    return stat(qPrintable(path), &status) == 0 ? status.st_mode & 07777U : 0;
}
}

class ScriptFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void writesForOwnerAlone();
    void replacesFileThatAllCanRead();
    void saysWhyItCannotWrite();

private:
    Plan m_plan;
    QTemporaryDir m_directory;
};

void ScriptFileTest::init()
{
    m_plan = Plan();
    m_plan.add({"groupadd"}, "staff");
}

void ScriptFileTest::writesForOwnerAlone()
{
    const QString path = m_directory.filePath(QStringLiteral("new.sh"));
    QCOMPARE(writeScript(path, m_plan), QString());
    QCOMPARE(contentOf(path), m_plan.toScript());
    QCOMPARE(modeOf(path), 0700U);
}

void ScriptFileTest::replacesFileThatAllCanRead()
{
    const QString path = m_directory.filePath(QStringLiteral("old.sh"));
    QFile old(path);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("something else that is longer than the script is going to be, so that its end would be left over\n");
    old.close();
    QCOMPARE(chmod(qPrintable(path), 0666), 0);
    QFile opened(path);
    QVERIFY(opened.open(QIODevice::ReadOnly));

    QCOMPARE(writeScript(path, m_plan), QString());
    QCOMPARE(contentOf(path), m_plan.toScript());
    QCOMPARE(modeOf(path), 0700U);
    // Somebody who has the old file open does not see the new one.
    QVERIFY(opened.readAll().startsWith("something else"));
}

void ScriptFileTest::saysWhyItCannotWrite()
{
    const QString error = writeScript(m_directory.filePath(QStringLiteral("missing/plan.sh")), m_plan);
    QVERIFY2(error.contains(QLatin1String("No such file or directory")), qPrintable(error));
}

QTEST_GUILESS_MAIN(ScriptFileTest)

#include "scriptfiletest.moc"

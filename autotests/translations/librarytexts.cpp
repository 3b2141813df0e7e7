/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "dialogparts.h"
#include "idrange_p.h"
#include "sandbox.h"
#include "visibletexts.h"

#include <GroupSelectDialog>
#include <LimitsParser>
#include <UserIconDialog>
#include <UserSelectDialog>

#include <QComboBox>
#include <QFileDialog>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

// One program is linked to this, another one loads it.

namespace
{
/** The texts of the dialog that asks for a picture. */
QStringList fileDialogTexts(const UserIconDialog &dialog)
{
    QStringList texts;
    withFileDialog(dialog, [&texts](QFileDialog *fileDialog) {
        texts.append(fileDialog->windowTitle());
        texts.append(fileDialog->nameFilters());
    });
    return texts;
}

QStringList dialogTexts()
{
    Sandbox::setAccounts("root:x:0:0::/:\nzoe:x:1000:1000::/:\n", "root:x:0:\nzoe:x:1000:\n");
    UserSelectDialog users;
    GroupSelectDialog groups;
    part<QComboBox>(users, "userFilterComboBox")->setCurrentIndex(0);
    part<QComboBox>(groups, "groupFilterComboBox")->setCurrentIndex(0);
    const UserIconDialog icon;
    return visibleTexts(users) + visibleTexts(groups) + visibleTexts(icon) + fileDialogTexts(icon);
}

QStringList itemDescriptions()
{
    QStringList texts;
    for (auto it = LimitsParser::m_fieldDescriptionsMap.cbegin(); it != LimitsParser::m_fieldDescriptionsMap.cend();
         ++it) {
        texts.append(it->description);
        texts.append(LimitsParser::itemToolTip(it.key()));
    }
    return texts;
}

QStringList limitTexts()
{
    QStringList texts;
    for (const char *type : {"soft", "hard", "-"}) {
        texts.append(LimitsParser::typeToolTip(QString::fromLatin1(type)));
    }
    for (const char *domain : {"*", "zoe", "@staff", "//d://", "@//d://"}) {
        texts.append(LimitsParser::domainToolTip(QString::fromLatin1(domain)));
    }
    for (const char *item : {"core", "msgqueue", "cpu"}) {
        texts.append(LimitsParser::valueToString(102400, QString::fromLatin1(item)));
    }
    for (const int value : {0, 1}) {
        texts.append(LimitsParser::valueToString(value, QStringLiteral("nonewprivs")));
    }
    return texts;
}

/** A text that no domain has, since both ends of a range need their slashes. */
QStringList otherRangeTexts()
{
    const QString id = QStringLiteral("1000");
    return {userIdsToolTip({QString(), id}),
            userIdsToolTip({id, QString()}),
            groupIdsToolTip({QString(), id}),
            groupIdsToolTip({id, QString()})};
}

QString readingError()
{
    Sandbox::remove(QStringLiteral("/etc/security/limits.conf"));
    QString error;
    LimitsParser().readLimitsConf(error);
    return error;
}
}

/** All visible texts of the library, always in the same order, as a JSON array. */
extern "C" Q_DECL_EXPORT void printTexts()
{
    const QStringList texts =
        dialogTexts() + itemDescriptions() + limitTexts() + otherRangeTexts() + QStringList(readingError());
    puts(QJsonDocument(QJsonArray::fromStringList(texts)).toJson().constData());
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef NEWACCOUNTPAGEPARTS_H
#define NEWACCOUNTPAGEPARTS_H

#include "accountstore.h"
#include "dialogparts.h"
#include "newaccountpage.h"
#include "patience.h"

#include <GroupSelectDialog>

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

/** The page of a new account, its parts, and the existing accounts. */
namespace NewAccountParts
{
inline const char existingUsers[] = "root:x:0:0:root:/root:/bin/bash\n"
                                    "alice:x:1000:1000::/home/alice:/bin/sh\n"
                                    "bob:x:1001:50::/home/bob:/bin/sh\n";

inline const char existingGroups[] = "root:x:0:\n"
                                     "ormel-admin:x:27:\n"
                                     "audio:x:29:\n"
                                     "staff:x:50:\n"
                                     "video:x:44:\n"
                                     "newbie:x:1003:\n";

inline QString facesPath()
{
    return QStringLiteral("/usr/share/kiv/faces");
}

inline QPixmap plainPicture(const QColor &colour)
{
    QPixmap picture(100, 100);
    picture.fill(colour);
    return picture;
}

/** Checks @p names in a dialog and presses Ok. */
inline void pickGroups(GroupSelectDialog &dialog, const QStringList &names)
{
    for (const QString &name : names) {
        clickCheckBox(*part<QTreeView>(dialog, "groupsTreeView"), name);
    }
    part<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
}

struct Store {
    AccountStore store;
};

/** A page and its parts. */
struct Page : Store, NewAccountPage {
    Page()
        : NewAccountPage(&store)
    {
    }

    QLineEdit *userName = part<QLineEdit>(*this, "userNameEdit");
    QPushButton *pictureButton = part<QPushButton>(*this, "pictureButton");
    QPushButton *groupsButton = part<QPushButton>(*this, "groupsButton");
    QLabel *groups = part<QLabel>(*this, "groupsLabel");
    QLineEdit *password = part<QLineEdit>(*this, "passwordEdit");
    QPushButton *hashButton = part<QPushButton>(*this, "hashButton");
    QLineEdit *sha512 = part<QLineEdit>(*this, "sha512HashEdit");
    QLineEdit *gost = part<QLineEdit>(*this, "gostHashEdit");

    bool open()
    {
        show();
        return QTest::qWaitForWindowActive(this, patience);
    }

    QLabel *note(const QString &edit) const
    {
        return part<QLabel>(*this, qPrintable(edit + QLatin1String("Note")));
    }

    /** The note on an edit; null when there is none. */
    QString shownNote(const QString &edit) const
    {
        return note(edit)->isVisible() ? note(edit)->text() : QString();
    }

    /** The commands; null when there are none. */
    QString shownCommands() const
    {
        const auto *edit = part<QPlainTextEdit>(*this, "commandsEdit");
        return edit->isVisible() ? edit->toPlainText() : QString();
    }

    QRgb pictureColour() const
    {
        return pictureButton->icon().pixmap(8, 8).toImage().pixel(4, 4);
    }
};
}

#endif

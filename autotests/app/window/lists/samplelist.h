/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SAMPLELIST_H
#define SAMPLELIST_H

#include "dialogparts.h"
#include "recordlist.h"
#include "recordview.h"
#include "rowactions.h"
#include "searchfield.h"
#include "texts.h"
#include "usermodel.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

/** A list of users with its parts. */
namespace SampleList
{
inline UserRecord user(const QString &name, uint uid)
{
    UserRecord user;
    user.name = name;
    user.uid = uid;
    user.gecos = QLatin1String("Full ") + name;
    user.system = uid < 1000;
    return user;
}

inline QVector<UserRecord> users(std::initializer_list<const char *> names)
{
    QVector<UserRecord> users;
    for (const char *name : names) {
        users.append(user(text(name), users.isEmpty() ? 0 : 1000 + users.size()));
    }
    return users;
}

inline RecordList::Texts texts()
{
    RecordList::Texts texts;
    texts.name = text("Users");
    texts.filters = QStringList({text("All"), text("Ordinary"), text("System")});
    texts.noMatch = [] { return text("No user matches."); };
    texts.count = [](int shown, int total) { return text("%1 of %2").arg(shown).arg(total); };
    return texts;
}

/** A list of five users, root being the system account. */
struct List {
    List()
    {
        model.setRecords(users({"root", "ada", "bob", "carl", "dora"}));
        list.resize(500, 400);
        list.show();
    }

    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < model.rowCount(); ++row) {
            names.append(model.index(row, 0).data().toString());
        }
        return names;
    }

    QString current() const
    {
        const int record = view->currentRecord();
        return record == -1 ? QString() : model.name(record);
    }

    QString selected() const
    {
        QStringList names;
        const QVector<int> records = view->selectedRecords();
        for (const int record : records) {
            names.append(model.name(record));
        }
        return names.join(QLatin1Char(' '));
    }

    /** Clicks a name while Ctrl is held. */
    void addToSelection(const char *name) const
    {
        const QRect row = view->visualRect(model.find(text(name)));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ControlModifier, row.center());
    }

    QAction *action(const char *title) const
    {
        const QList<QAction *> actions = view->actions();
        for (QAction *action : actions) {
            if (action->text().remove(QLatin1Char('&')) == QString::fromUtf8(title)) {
                return action;
            }
        }
        qFatal("There is no action %s", title);
    }

    UserModel model;
    RecordList list{text("userList"), &model, texts()};
    RecordView *view = list.view();
    SearchField *search = part<SearchField>(list, "searchField");
    QComboBox *filter = part<QComboBox>(list, "filterComboBox");
    QLabel *count = part<QLabel>(list, "count");
    QLabel *noMatch = part<QLabel>(list, "noMatch");
    QPushButton *clear = part<QPushButton>(list, "clearButton");
};
}

#endif

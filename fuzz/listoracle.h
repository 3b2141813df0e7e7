/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LISTORACLE_H
#define LISTORACLE_H

#include "listkinds.h"

#include <QSet>

#include <algorithm>

/** A simple model of the rows that a list model should have. */
template<typename Kind>
class ListOracle
{
public:
    using Record = typename Kind::Record;
    using Model = typename Kind::Model;

    int filter = std::is_same_v<Kind, Users> ? 1 : 0;
    bool selectable = false;
    /** The group that is edited, or the user. */
    GroupInfo group;
    QString userName;

    int rowCount() const
    {
        return m_shown.size();
    }

    QString nameAt(int row) const
    {
        return m_shown.at(row).name();
    }

    void reload()
    {
        m_all.clear();
        const QList<Record> records = Kind::records();
        for (const Record &record : records) {
            int place = m_all.size();
            while (place > 0 && record.name() < m_all.at(place - 1).name()) {
                --place;
            }
            m_all.insert(place, record);
        }
        if constexpr (std::is_same_v<Kind, Groups>) {
            group = GroupInfo();
            for (int i = m_all.size() - 1; i >= 0 && !userName.isEmpty(); --i) {
                group = m_all.at(i).name() == userName ? m_all.at(i) : group;
            }
        }
        applyFilter();
    }

    void applyFilter()
    {
        m_shown.clear();
        for (const Record &record : qAsConst(m_all)) {
            if (isShown(record)) {
                m_shown.append(record);
            }
        }
    }

    void setSelectedNames(const QStringList &names)
    {
        m_selected = names;
        applyFilter();
    }

    void select(const QString &name, bool selected)
    {
        m_selected.removeAll(name);
        if (selected) {
            m_selected.append(name);
        }
    }

    bool isSelected(const QString &name) const
    {
        return m_selected.contains(name);
    }

    void setNewName(const QString &name)
    {
        m_newName = name;
        if (m_shown.isEmpty() || !m_shown.last().name().isEmpty()) {
            m_shown.append(Record());
        }
    }

    void remove(int row, int count)
    {
        for (; count > 0; --count) {
            const QString name = m_shown.takeAt(row).name();
            for (int i = m_all.size() - 1; i >= 0; --i) {
                if (m_all.at(i).name() == name) {
                    m_all.removeAt(i);
                }
            }
        }
    }

    void reloadRecord(const QString &name)
    {
        for (QList<Record> *records : {&m_all, &m_shown}) {
            for (Record &record : *records) {
                if (record.name() == name && !(std::is_same_v<Kind, Users> && record.name().isNull())) {
                    record.reload();
                    break;
                }
            }
        }
    }

    int find(const QString &name) const
    {
        for (int row = 0; row < m_shown.size(); ++row) {
            if (m_shown.at(row).name() == name) {
                return row;
            }
        }
        return -1;
    }

    QStringList selectedNames() const
    {
        QStringList names;
        QStringList own;
        for (const Record &record : m_all) {
            const bool isOwn = std::is_same_v<Kind, Groups> && own.isEmpty() && record.name() == group.name();
            if (isSelected(record.name())) {
                (isOwn ? own : names).append(record.name());
            }
        }
        return own + names;
    }

    /** The cells of a row with its box: "[x] zoe | 1000 | No | locked". */
    QString rowText(int row) const
    {
        const Record &record = m_shown.at(row);
        const QString box = isSelected(record.name()) ? QStringLiteral("[x] ") : QStringLiteral("[ ] ");
        const QStringList cells{
            (selectable ? box : QString()) + (record.name().isEmpty() ? m_newName : record.name()),
            QString::number(Kind::id(record)),
            record.isSystem() ? QStringLiteral("Yes") : QStringLiteral("No"),
        };
        return cells.join(QStringLiteral(" | ")) + (isLocked(record) ? QStringLiteral(" | locked") : QString());
    }

private:
    bool isShown(const Record &record) const
    {
        switch (filter) {
        case Model::All:
            return true;
        case Model::Ordinary:
            return !record.isSystem();
        case Model::System:
            return record.isSystem();
        case Model::Selected:
            return isSelected(record.name());
        case Model::Unselected:
            return !isSelected(record.name());
        default:
            return Kind::isShown(filter, record);
        }
    }

    bool isLocked(const UserInfo &user) const
    {
        const passwd *entry = group.name().isEmpty() ? nullptr : getpwnam(user.name().toLatin1().constData());
        return entry && entry->pw_gid == group.gid();
    }

    bool isLocked(const GroupInfo &record) const
    {
        return !record.name().isEmpty() && record == group;
    }

    QList<Record> m_all;
    QList<Record> m_shown;
    QStringList m_selected;
    QString m_newName;
};

#endif

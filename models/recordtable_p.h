/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RECORDTABLE_P_H
#define RECORDTABLE_P_H

#include <QAbstractTableModel>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <utility>

/**
 * What UserListModel and GroupListModel do alike.
 *
 * Each function works on the model that it is given, whose friend this class is. What the models
 * call differently or do differently is in their Traits, beside the rest of the model.
 */
class RecordTable
{
public:
    template<typename Model>
    static int rowCount(const Model &model)
    {
        return rows(model).size();
    }

    template<typename Model>
    static QVariant data(const Model &model, const QModelIndex &index, int role)
    {
        const auto *record = RecordTable::record(model, index);
        if (!record) {
            return {};
        }
        if (index.column() == Model::NameColumn) {
            return nameData(model, *record, role);
        }
        if (role != Qt::DisplayRole) {
            return {};
        }
        switch (index.column()) {
        case Traits<Model>::idColumn:
            return Traits<Model>::id(*record);
        case Model::SystemColumn:
            return yesOrNo(record->isSystem());
        default:
            return {};
        }
    }

    template<typename Model>
    static bool setData(Model &model, const QModelIndex &index, const QVariant &value, int role)
    {
        const auto *record = RecordTable::record(model, index);
        if (!record || index.column() != Model::NameColumn || role != Qt::CheckStateRole) {
            return false;
        }
        select(model, record->name(), value.toInt() == Qt::Checked);
        Q_EMIT model.dataChanged(index, index, {Qt::CheckStateRole});
        return true;
    }

    template<typename Model>
    static QVariant headerData(const Model &model, int section, Qt::Orientation orientation, int role)
    {
        if (role == Qt::DisplayRole) {
            switch (section) {
            case Model::NameColumn:
                return nameHeader();
            case Traits<Model>::idColumn:
                return Traits<Model>::idHeader();
            case Model::SystemColumn:
                return Traits<Model>::systemHeader();
            default:
                break;
            }
        }
        return model.QAbstractTableModel::headerData(section, orientation, role);
    }

    template<typename Model>
    static bool removeRows(Model &model, int row, int count, const QModelIndex &parent)
    {
        const bool fromNowhere = row < 0 && count > 0;
        if (fromNowhere || qint64(row) + count > rowCount(model)) {
            return false;
        }
        model.beginRemoveRows(parent, row, row + count - 1);
        for (int i = 0; i < count; ++i) {
            const QString name = rows(model).takeAt(row).name();
            removeByName(records(model), name);
        }
        model.endRemoveRows();
        return true;
    }

    template<typename Model>
    static Qt::ItemFlags flags(const Model &model, const QModelIndex &index)
    {
        const auto *record = RecordTable::record(model, index);
        if (!record || Traits<Model>::isLocked(model, *record)) {
            return Qt::NoItemFlags;
        }
        if (index.column() != Model::NameColumn) {
            return model.QAbstractTableModel::flags(index);
        }
        const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
        return model.m_selectable ? flags | Qt::ItemIsUserCheckable : flags;
    }

    /** The record of the row of @p index, whatever model it is of; null when there is no such row. */
    template<typename Model>
    static const auto *record(const Model &model, const QModelIndex &index)
    {
        return index.isValid() && index.row() < rowCount(model) ? &rows(model).at(index.row()) : nullptr;
    }

    template<typename Model>
    static QModelIndex find(const Model &model, const QString &name)
    {
        const int row = rowOf(rows(model), name);
        return row < 0 ? QModelIndex() : model.index(row, Model::NameColumn);
    }

    template<typename Model>
    static void setSelectable(Model &model, bool selectable)
    {
        if (model.m_selectable == selectable) {
            return;
        }
        model.beginResetModel();
        model.m_selectable = selectable;
        model.endResetModel();
    }

    template<typename Model>
    static void setFilter(Model &model, typename Model::Filter filter)
    {
        if (model.m_filter == filter) {
            return;
        }
        model.m_filter = filter;
        model.applyFilter();
    }

    template<typename Model>
    static void applyFilter(Model &model)
    {
        model.beginResetModel();
        const auto &all = records(std::as_const(model));
        auto &shown = rows(model);
        shown.clear();
        std::copy_if(all.begin(), all.end(), std::back_inserter(shown), [&model](const auto &record) {
            return isShown(model, record);
        });
        model.endResetModel();
    }

    template<typename Model>
    static QStringList selectedNames(const Model &model)
    {
        QStringList names;
        for (const auto &record : records(model)) {
            if (model.m_selectedNames.contains(record.name())) {
                names.append(record.name());
            }
        }
        return names;
    }

    template<typename Model>
    static void setSelectedNames(Model &model, const QStringList &names)
    {
        model.m_selectedNames = toSet(names);
        model.applyFilter();
    }

    template<typename Model>
    static void setSelectedName(Model &model, const QString &name, bool selected)
    {
        if (model.m_selectedNames.contains(name) == selected) {
            return;
        }
        select(model, name, selected);
        model.applyFilter();
    }

    template<typename Model>
    static QModelIndex setNewName(Model &model, const QString &name)
    {
        auto &shown = rows(model);
        if (shown.isEmpty() || !shown.constLast().isEmpty()) {
            const int row = rowCount(model);
            model.beginInsertRows(QModelIndex(), row, row);
            shown.append(typename Traits<Model>::Record());
            model.endInsertRows();
        }
        model.*Traits<Model>::newName = name;
        const QModelIndex placeholder = model.index(rowCount(model) - 1, Model::NameColumn);
        Q_EMIT model.dataChanged(placeholder, placeholder, {Qt::DisplayRole});
        return placeholder;
    }

    /** Replaces the records by @p all, in the order of their names. */
    template<typename Model, typename Records>
    static void setRecords(Model &model, Records all)
    {
        std::stable_sort(
            all.begin(), all.end(), [](const auto &left, const auto &right) { return left.name() < right.name(); });
        records(model) = std::move(all);
    }

    /** The first record, shown or not, that is called @p name; an empty one when there is none. */
    template<typename Model>
    static auto firstRecord(const Model &model, const QString &name)
    {
        return records(model).value(rowOf(records(model), name));
    }

    template<typename Model>
    static void reloadRecord(Model &model, const QString &name)
    {
        reloadFirst(records(model), name);
        reloadFirst(rows(model), name);
    }

    static QSet<QString> toSet(const QStringList &names)
    {
        return {names.begin(), names.end()};
    }

private:
    template<typename Model>
    struct Traits;

    template<typename Model>
    static auto &records(Model &model)
    {
        return model.*Traits<std::remove_const_t<Model>>::records;
    }

    template<typename Model>
    static auto &rows(Model &model)
    {
        return model.*Traits<std::remove_const_t<Model>>::rows;
    }

    /** The index of the first of @p records that is called @p name, or -1. */
    template<typename Records>
    static int rowOf(const Records &records, const QString &name)
    {
        const auto found =
            std::find_if(records.begin(), records.end(), [&name](const auto &record) { return record.name() == name; });
        return found == records.end() ? -1 : static_cast<int>(found - records.begin());
    }

    template<typename Model, typename Record>
    static QVariant nameData(const Model &model, const Record &record, int role)
    {
        switch (role) {
        case Qt::DisplayRole:
            return record.isEmpty() ? model.*Traits<Model>::newName : record.name();
        case Qt::DecorationRole:
            return model.*(record.isSystem() ? Traits<Model>::systemIcon : Traits<Model>::icon);
        case Qt::CheckStateRole:
            return model.m_selectable ? checkState(model.m_selectedNames.contains(record.name())) : QVariant();
        default:
            return {};
        }
    }

    template<typename Model, typename Record>
    static bool isShown(const Model &model, const Record &record)
    {
        switch (model.m_filter) {
        case Model::Ordinary:
            return !record.isSystem();
        case Model::System:
            return record.isSystem();
        case Model::Selected:
            return model.m_selectedNames.contains(record.name());
        case Model::Unselected:
            return !model.m_selectedNames.contains(record.name());
        default:
            return Traits<Model>::isShown(model.m_filter, record);
        }
    }

    template<typename Model>
    static void select(Model &model, const QString &name, bool selected)
    {
        if (selected) {
            model.m_selectedNames.insert(name);
        } else {
            model.m_selectedNames.remove(name);
        }
    }

    template<typename Records>
    static void removeByName(Records &records, const QString &name)
    {
        const auto bearsName = [&name](const auto &record) { return record.name() == name; };
        records.erase(std::remove_if(records.begin(), records.end(), bearsName), records.end());
    }

    template<typename Records>
    static void reloadFirst(Records &records, const QString &name)
    {
        const int row = rowOf(records, name);
        if (row >= 0) {
            records[row].reload();
        }
    }

    static QVariant checkState(bool checked);
    static QString nameHeader();
    static QString yesOrNo(bool value);
};

#endif

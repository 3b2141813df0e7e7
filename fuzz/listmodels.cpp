/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountscript.h"
#include "fuzzing.h"
#include "listoracle.h"
#include "modellog.h"
#include "sandbox.h"

#include <memory>

using namespace Fuzzing;

// An input is a script. Both models carry out its commands. These are those of ListStage::act()
// and of AccountScript::act().

namespace
{
constexpr int mostCommands = 60;
constexpr int beyondFilters = 8;
constexpr int mostRows = 20;

/** Does the same to a model and to the rules for it. */
template<typename Kind>
class ListStage
{
public:
    using Model = typename Kind::Model;

    ListStage()
        : m_model(std::make_unique<Model>())
    {
        start();
    }

    void act(const Command &command)
    {
        const QByteArray &verb = command.verb();
        if (verb == "list") {
            list();
        } else if (verb == "edit") {
            edit(command.text(0), command.textsFrom(1));
        } else if (verb == "filter") {
            setFilter(command.number(0, -1, beyondFilters));
        } else if (verb == "boxes") {
            m_model->setSelectable(command.number(0, 0, 1));
            m_oracle.selectable = command.number(0, 0, 1);
        } else if (verb == "names") {
            Kind::setSelectedNames(*m_model, command.textsFrom(0));
            m_oracle.setSelectedNames(command.textsFrom(0));
        } else if (verb == "select") {
            select(command.text(0), command.number(1, 0, 1));
        } else if (verb == "check") {
            check(command);
        } else if (verb == "remove") {
            remove(command.number(0, -mostRows, mostRows), command.number(1, -mostRows, mostRows));
        } else if (verb == "new") {
            const QModelIndex row = Kind::setNewName(*m_model, command.text(0));
            m_oracle.setNewName(command.text(0));
            require(row.row() == m_oracle.rowCount() - 1, QStringLiteral("The new row is the last one"));
        } else if (verb == "apply") {
            m_model->applyFilter();
            m_oracle.applyFilter();
        } else if (verb == "reload") {
            m_model->reload();
            m_oracle.reload();
        } else if (verb == "reloadOne" && Kind::canBeReloaded(command.text(0))) {
            Kind::reloadRecord(*m_model, command.text(0));
            m_oracle.reloadRecord(command.text(0));
        }
    }

    void check() const
    {
        require(m_model->rowCount() == m_oracle.rowCount(), QStringLiteral("All rows are there, and no other"));
        for (int row = 0; row < m_oracle.rowCount(); ++row) {
            const QModelIndex index = m_model->index(row, 0);
            const bool isLocked = index.flags() == Qt::NoItemFlags;
            requireEqual(rowText(*m_model, row) + (isLocked ? QStringLiteral(" | locked") : QString()),
                         m_oracle.rowText(row),
                         "A row");
            require(isLocked == (m_model->index(row, 2).flags() == Qt::NoItemFlags),
                    QStringLiteral("A row is locked as a whole"));
            const auto *record = Kind::record(*m_model, index);
            require(record, QStringLiteral("A row has a record"));
            require(Kind::find(*m_model, record->name()).row() == m_oracle.find(record->name()),
                    QStringLiteral("A name is found in its first row"));
        }
        require(m_model->isEmpty() == (m_oracle.rowCount() == 0), QStringLiteral("A model without rows is empty"));
        const QString header = m_model->headerData(Kind::idColumn, Qt::Horizontal).toString();
        requireEqual(header, QLatin1String(Kind::idHeader), "The title of the ids");
        requireEqual(Kind::selectedNames(*m_model).join(QLatin1Char(' ')),
                     m_oracle.selectedNames().join(QLatin1Char(' ')),
                     "The selected names");
    }

private:
    void start()
    {
        test();
        m_oracle.reload();
    }

    void test()
    {
        m_tester = std::make_unique<TableTester>(m_model.get(), TableTester::Mode::Fatal);
    }

    void list()
    {
        m_tester.reset();
        m_model = std::make_unique<Model>();
        m_oracle = {};
        start();
    }

    void edit(const QString &name, const QStringList &selected)
    {
        m_tester.reset();
        m_oracle = {};
        m_oracle.selectable = true;
        m_oracle.setSelectedNames(selected);
        if constexpr (std::is_same_v<Kind, Users>) {
            m_oracle.group = GroupInfo::getGroup(name);
            m_model = std::make_unique<Model>(m_oracle.group, selected);
        } else {
            m_oracle.userName = name;
            m_model = std::make_unique<Model>(name, selected);
        }
        start();
    }

    void setFilter(int filter)
    {
        m_model->setFilter(static_cast<typename Model::Filter>(filter));
        if (m_oracle.filter != filter) {
            m_oracle.filter = filter;
            m_oracle.applyFilter();
        }
    }

    void select(const QString &name, bool selected)
    {
        Kind::setSelectedName(*m_model, name, selected);
        if (m_oracle.isSelected(name) != selected) {
            m_oracle.select(name, selected);
            m_oracle.applyFilter();
        }
    }

    /** "check ROW VALUE COLUMN ROLE"; without the last two the box of the row. */
    void check(const Command &command)
    {
        const int row = command.number(0, -1, mostRows);
        const int value = command.number(1, -1, 3);
        const int column = command.number(2, -1, 3);
        const int role = command.argumentCount() > 3 ? command.number(3, 0, 1000) : int(Qt::CheckStateRole);
        const bool isBox = row >= 0 && row < m_oracle.rowCount() && column == 0 && role == Qt::CheckStateRole;
        const bool isDone = m_model->setData(m_model->index(row, column), value, role);
        require(isDone == isBox, QStringLiteral("What is set are the boxes"));
        if (isBox) {
            m_oracle.select(m_oracle.nameAt(row), value == Qt::Checked);
        }
    }

    void remove(int row, int count)
    {
        if (count <= 0) {
            removeNothing(row, count);
            return;
        }
        const bool isThere = row >= 0 && row + count <= m_oracle.rowCount();
        require(m_model->removeRows(row, count) == isThere, QStringLiteral("Rows that are there can be removed"));
        if (isThere) {
            m_oracle.remove(row, count);
        }
    }

    /** The model announces even such a removal anywhere before the end, which a model tester would reject. */
    void removeNothing(int row, int count)
    {
        m_tester.reset();
        require(m_model->removeRows(row, count) == (row + count <= m_oracle.rowCount()),
                QStringLiteral("No rows can be removed before the end"));
        test();
    }

    std::unique_ptr<Model> m_model;
    std::unique_ptr<TableTester> m_tester;
    ListOracle<Kind> m_oracle;
};
}

void Target::prepare()
{
    Sandbox::removeExtraAccounts();
}

void Target::run(const QByteArray &input)
{
    runScript<ListStage<Users>, ListStage<Groups>>(input, mostCommands);
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountscript.h"
#include "dialogkinds.h"
#include "listoracle.h"

#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QTest>

#include <algorithm>
#include <iterator>
#include <memory>
#include <type_traits>

using namespace Fuzzing;

// An input is a script. Both dialogs carry out its commands. These are those of Stage::commands
// and of AccountScript::act().

namespace
{
constexpr int mostCommands = 40;
constexpr int mostRows = 20;

constexpr Qt::Key keys[] = {
    Qt::Key_Up,
    Qt::Key_Down,
    Qt::Key_PageUp,
    Qt::Key_PageDown,
    Qt::Key_Home,
    Qt::Key_End,
    Qt::Key_Right,
    Qt::Key_Asterisk,
};

/** The characters of @p text that can be typed. */
QString typed(const QString &text)
{
    QString result;
    std::copy_if(text.begin(), text.end(), std::back_inserter(result), [](QChar c) {
        return c.unicode() >= 0x20 && c.unicode() < 0x7f;
    });
    return result;
}

/** Does the same to a dialog and to a model of its rows. */
template<typename Kind>
class Stage
{
    using List = std::conditional_t<std::is_base_of_v<Users, Kind>, Users, Groups>;

public:
    Stage()
    {
        open({}, {});
    }

    void act(const Command &command)
    {
        using Action = void (Stage::*)(const Command &);
        static const QHash<QByteArray, Action> commands{
            {"edit", &Stage::edit},
            {"single", &Stage::setSingle},
            {"filter", &Stage::setFilter},
            {"type", &Stage::type},
            {"sort", &Stage::sort},
            {"box", &Stage::clickBox},
            {"click", &Stage::click},
            {"activate", &Stage::activate},
            {"key", &Stage::key},
            {"space", &Stage::space},
            {"selectAll", &Stage::selectAll},
            {"paint", &Stage::paint},
        };
        if (const Action action = commands.value(command.verb())) {
            (this->*action)(command);
        }
    }

    void check() const
    {
        QStringList expected;
        for (int row = 0; row < m_oracle.rowCount(); ++row) {
            if (m_oracle.nameAt(row).contains(m_dialog->lineEdit->text())) {
                expected.append(m_oracle.rowText(row));
            }
        }
        QStringList actual;
        for (int row = 0; row < rowCount(); ++row) {
            const QModelIndex index = indexAt(row);
            const bool isLocked = index.flags() == Qt::NoItemFlags || index.flags() == Qt::ItemNeverHasChildren;
            actual.append(rowText(*m_dialog->view->model(), row)
                          + (isLocked ? QStringLiteral(" | locked") : QString()));
        }
        checkOrder();
        std::sort(expected.begin(), expected.end());
        std::sort(actual.begin(), actual.end());
        requireEqual(actual.join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')), "The rows");
        checkPicked();
    }

private:
    void open(const QString &name, const QStringList &selected)
    {
        m_oracle = {};
        m_oracle.selectable = true;
        m_oracle.setSelectedNames(selected);
        if constexpr (std::is_same_v<List, Users>) {
            m_oracle.group = GroupInfo::getGroup(name);
            m_dialog = std::make_unique<DialogOf<Kind>>(m_oracle.group, selected);
        } else {
            m_oracle.userName = name;
            m_dialog = std::make_unique<DialogOf<Kind>>(name, selected);
        }
        m_oracle.reload();
        m_dialog->show();
    }

    void edit(const Command &command)
    {
        open(command.text(0), command.textsFrom(1));
    }

    void setSingle(const Command &command)
    {
        const bool on = command.number(0, 0, 1);
        m_dialog->setSingleSelectionMode(on);
        m_oracle.selectable = !on;
    }

    void setFilter(const Command &command)
    {
        const int filter = command.number(0, 0, m_dialog->comboBox->count() - 1);
        pressInFilters(Qt::Key_Home);
        for (int i = 0; i < filter; ++i) {
            pressInFilters(Qt::Key_Down);
        }
        require(m_dialog->comboBox->currentIndex() == filter, QStringLiteral("The keys choose a filter"));
    }

    /** Each filter on the way counts. */
    void pressInFilters(Qt::Key key)
    {
        QTest::keyClick(m_dialog->comboBox, key);
        const int chosen = m_dialog->comboBox->currentData().toInt();
        if (m_oracle.filter != chosen) {
            m_oracle.filter = chosen;
            m_oracle.applyFilter();
        }
    }

    void type(const Command &command)
    {
        m_dialog->lineEdit->clear();
        QTest::keyClicks(m_dialog->lineEdit, typed(command.text(0)));
    }

    void sort(const Command &command)
    {
        QHeaderView &header = *m_dialog->view->header();
        const int column = command.number(0, 0, header.count() - 1);
        const int middle = header.sectionViewportPosition(column) + header.sectionSize(column) / 2;
        QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, {middle, header.height() / 2});
    }

    void clickBox(const Command &command)
    {
        const QModelIndex index = visibleIndex(command.number(0, 0, mostRows), 0);
        if (index.isValid() && m_oracle.selectable) {
            const bool isFree = !isLocked(index);
            const QString name = nameOf(index);
            QTest::mouseClick(m_dialog->view->viewport(), Qt::LeftButton, Qt::NoModifier, boxOf(index));
            if (isFree) {
                m_oracle.select(name, !m_oracle.isSelected(name));
            }
        }
    }

    void click(const Command &command)
    {
        const QModelIndex index = visibleIndex(command.number(0, 0, mostRows), command.number(1, 1, 2));
        if (index.isValid()) {
            const auto modifier = command.argumentCount() > 2 ? Qt::ControlModifier : Qt::NoModifier;
            QTest::mouseClick(
                m_dialog->view->viewport(), Qt::LeftButton, modifier, m_dialog->view->visualRect(index).center());
        }
    }

    void activate(const Command &command)
    {
        const QModelIndex index = visibleIndex(command.number(0, 0, mostRows), 1);
        if (!index.isValid() || isLocked(index)) {
            return;
        }
        const QString name = nameOf(index);
        const QPoint position = m_dialog->view->visualRect(index).center();
        QTest::mouseClick(m_dialog->view->viewport(), Qt::LeftButton, Qt::NoModifier, position);
        QTest::mouseDClick(m_dialog->view->viewport(), Qt::LeftButton, Qt::NoModifier, position);
        requireEqual(m_dialog->activatedName(), name, "The name of the row that was double-clicked");
        require(m_dialog->result() == QDialog::Accepted && !m_dialog->isVisible(),
                QStringLiteral("A double click accepts the dialog"));
        m_dialog->show();
    }

    void key(const Command &command)
    {
        QTest::keyClick(m_dialog->view, keys[command.number(0, 0, int(std::size(keys)) - 1)]);
    }

    void space(const Command & /*command*/)
    {
        const QModelIndex current = m_dialog->view->currentIndex();
        const bool hasBox = current.isValid() && current.column() == 0 && m_oracle.selectable && !isLocked(current);
        const QString name = current.isValid() ? nameOf(current) : QString();
        QTest::keyClick(m_dialog->view, Qt::Key_Space);
        if (hasBox) {
            m_oracle.select(name, !m_oracle.isSelected(name));
        }
    }

    void selectAll(const Command & /*command*/)
    {
        QTest::keyClick(m_dialog->view, Qt::Key_A, Qt::ControlModifier);
    }

    void paint(const Command & /*command*/)
    {
        m_dialog->grab();
    }

    void checkOrder() const
    {
        const QHeaderView &header = *m_dialog->view->header();
        const int column = header.sortIndicatorSection();
        for (int row = 1; row < rowCount(); ++row) {
            const QVariant upper = indexAt(row - 1).siblingAtColumn(column).data();
            const QVariant lower = indexAt(row).siblingAtColumn(column).data();
            const bool isAscending = header.sortIndicatorOrder() == Qt::AscendingOrder;
            const QVariant &first = isAscending ? upper : lower;
            const QVariant &second = isAscending ? lower : upper;
            const bool isSorted = first.userType() == QMetaType::QString ? first.toString() <= second.toString()
                                                                         : first.toUInt() <= second.toUInt();
            require(isSorted, QStringLiteral("The rows are sorted by column %1").arg(column));
        }
    }

    void checkPicked() const
    {
        if (!m_oracle.selectable) {
            const QModelIndex current = m_dialog->view->currentIndex();
            requireEqual(m_dialog->pickedName(), current.isValid() ? nameOf(current) : QString(), "The current name");
            return;
        }
        const QString expected = m_oracle.selectedNames().join(QLatin1Char(' '));
        requireEqual(m_dialog->pickedNames().join(QLatin1Char(' ')), expected, "The selected names");
        requireEqual(m_dialog->pickedName(), m_oracle.selectedNames().value(0), "The first of them");
    }

    int rowCount() const
    {
        return m_dialog->view->model()->rowCount();
    }

    QModelIndex indexAt(int row) const
    {
        return m_dialog->view->model()->index(row, 0);
    }

    /** The cell at @p row, scrolled to; none when there are fewer rows. */
    QModelIndex visibleIndex(int row, int column) const
    {
        const QModelIndex index = m_dialog->view->model()->index(row, column);
        m_dialog->view->scrollTo(index);
        return index;
    }

    int sourceRow(const QModelIndex &index) const
    {
        return static_cast<const QSortFilterProxyModel *>(m_dialog->view->model())->mapToSource(index).row();
    }

    QString nameOf(const QModelIndex &index) const
    {
        return m_oracle.nameAt(sourceRow(index));
    }

    bool isLocked(const QModelIndex &index) const
    {
        return m_oracle.rowText(sourceRow(index)).endsWith(QLatin1String(" | locked"));
    }

    QPoint boxOf(const QModelIndex &index) const
    {
        QStyleOptionViewItem option;
        option.initFrom(m_dialog->view);
        option.rect = m_dialog->view->visualRect(index);
        option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
        return m_dialog->view->style()
            ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, m_dialog->view)
            .center();
    }

    std::unique_ptr<DialogOf<Kind>> m_dialog;
    ListOracle<List> m_oracle;
};
}

void Target::prepare()
{
    Sandbox::removeExtraAccounts();
}

void Target::run(const QByteArray &input)
{
    runScript<Stage<PickedUsers>, Stage<PickedGroups>>(input, mostCommands);
}

/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "groupdetails.h"

#include "accounticons.h"
#include "linelabel.h"

#include <KLocalizedString>

#include <QIcon>

namespace
{
constexpr int groupPictureSize = 48;
constexpr uint nogroup = 65534;

QString kind(const GroupRecord &group)
{
    if (!group.system) {
        return {};
    }
    return group.gid == nogroup ? i18nc("@info about a group", "System group: the GID 65534 belongs to nobody")
                                : i18nc("@info about a group", "System group: the GID is below 1000");
}
}

GroupDetails::GroupDetails(QWidget *parent)
    : Details(groupPictureSize, parent)
    , m_gid(addField(i18nc("@label the number of a group", "GID:")))
{
}

void GroupDetails::showGroup(const GroupRecord &group)
{
    const QIcon icon = group.system ? AccountIcons::systemGroup() : AccountIcons::group();
    setPicture(icon.pixmap(pictureSize()), QString());
    setTitle(group.name);
    setRemarks(QStringList(kind(group)));
    setText(*m_gid, QString::number(group.gid));
    setEnabled(true);
}

void GroupDetails::showNoGroup()
{
    setPicture(QPixmap(), QString());
    setTitle(i18n("No group is selected"));
    setRemarks({});
    setText(*m_gid, QString());
    setEnabled(false);
}

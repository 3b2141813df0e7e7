/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userdetails.h"

#include "accounticons.h"
#include "linelabel.h"
#include "linklabel.h"
#include "picturechild.h"
#include "recordtext.h"

#include <KLocalizedString>

#include <QIcon>

namespace
{
constexpr int userPictureSize = 96;

/** How long a user is current before a process is started to read the picture. In milliseconds. */
constexpr int pictureDelay = 50;

constexpr uint nobody = 65534;

QStringList remarks(const UserRecord &user)
{
    QStringList remarks;
    if (user.administrator) {
        remarks.append(i18nc("@info about a user", "Administrator: a member of the group ormel-admin"));
    }
    if (user.system) {
        remarks.append(user.uid == nobody
                           ? i18nc("@info about a user", "System account: the UID 65534 belongs to nobody")
                           : i18nc("@info about a user", "System account: the UID is below 1000"));
    }
    return remarks;
}
}

UserDetails::UserDetails(QWidget *parent)
    : Details(userPictureSize, parent)
    , m_picture(this)
    , m_pictureTimer(this)
    // The subfields of the GECOS field, in their order.
    , m_gecos({
          addField(i18nc("@label of a user", "Full name:")),
          addField(i18nc("@label of a user", "Room:")),
          addField(i18nc("@label of a user", "Work phone:")),
          addField(i18nc("@label of a user", "Home phone:")),
          addField(i18nc("@label other information about a user", "Other:")),
      })
    , m_home(addField(i18nc("@label of a user", "Home directory:")))
    , m_shell(addField(i18nc("@label of a user", "Login shell:")))
    , m_uid(addField(i18nc("@label the number of a user", "UID:")))
    , m_gid(addField(i18nc("@label the number of a group", "GID:")))
    , m_primaryGroup(addLinks(i18nc("@label of a user", "Primary group:")))
    , m_groups(addLinks(i18nc("@label of a user", "All groups:")))
{
    m_primaryGroup->setObjectName(QStringLiteral("primaryGroup"));
    m_groups->setObjectName(QStringLiteral("groups"));
    m_pictureTimer.setSingleShot(true);
    m_pictureTimer.setInterval(pictureDelay);
    connect(&m_pictureTimer, &QTimer::timeout, this, &UserDetails::findPicture);
    connect(&m_picture, &UserPicture::found, this, &UserDetails::showPicture);
}

void UserDetails::showNobody()
{
    m_pictureTimer.stop();
    m_picture.cancel();
    setPicture(QPixmap(), QString());
    showFields(UserRecord());
    setTitle(i18n("No user is selected"));
    setRemarks({});
    for (LineLabel *field : m_gecos) {
        setFieldVisible(*field, true); // to make room for all
    }
    setEnabled(false);
}

void UserDetails::showUser(const UserRecord &user)
{
    m_picture.cancel();
    if (user.name != m_user.name || user.home != m_user.home) {
        setPicture(QPixmap(), QString());
    }
    showFields(user);
    setText(*m_uid, QString::number(user.uid));
    setText(*m_gid, QString::number(user.gid));
    setEnabled(true);
    m_pictureTimer.start();
}

void UserDetails::showFields(const UserRecord &user)
{
    m_user = user;
    setTitle(user.name);
    setRemarks(remarks(user));
    const int last = m_gecos.size() - 1;
    for (int i = 0; i <= last; ++i) {
        const QString text = user.gecos.section(QLatin1Char(','), i, i < last ? i : -1);
        setText(*m_gecos.at(i), text);
        setFieldVisible(*m_gecos.at(i), !text.isEmpty());
    }
    setText(*m_home, user.home);
    setText(*m_shell, user.shell);
    setText(*m_uid, QString());
    setText(*m_gid, QString());
    m_primaryGroup->setLinks(AccountLink::Kind::Group,
                             user.primaryGroup.isEmpty() ? QStringList() : QStringList(user.primaryGroup));
    m_groups->setLinks(AccountLink::Kind::Group, user.groups);
}

void UserDetails::findPicture()
{
    const QByteArray name = RecordText::encode(m_user.name).constFirst().toLatin1();
    const QByteArray home = RecordText::encode(m_user.home).constFirst().toLatin1();
    m_picture.find({name, home, m_user.uid}, pictureSize() * devicePixelRatioF());
}

void UserDetails::showPicture(QImage picture)
{
    if (!picture.isNull()) {
        picture.setDevicePixelRatio(devicePixelRatioF());
        setPicture(QPixmap::fromImage(picture), i18n("Picture of the user"));
        return;
    }
    const QIcon icon = m_user.system ? AccountIcons::systemUser() : AccountIcons::user();
    setPicture(icon.pixmap(pictureSize()), i18n("No picture"));
}

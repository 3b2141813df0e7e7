#!/bin/sed -Ef
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: CC0-1.0
#
# The reference has the guides, but not the other pages that they link to.
s/\[([^]]*)\]\((architecture|limits|measurements|performance|reliability)\.md[^)]*\)/\1/g

// SPDX-License-Identifier: MIT
// Headers that most files of the editor use; never included by hand.
#pragma once

#include "document/Document.h"

#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPainter>
#include <QSpinBox>
#include <QTreeWidget>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

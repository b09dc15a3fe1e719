// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPainter>
#include <QStyleOption>

class QWidget;

// Paints the parts of the controls for ZELStyle. Every function takes Qt's style option and the
// widget, whose ZELCustomLook (when it has one) overrides the theme.
namespace ZELDraw {

// Well of a text or number editor.
void editFrame(const QStyleOption& option, QPainter* painter, const QWidget* widget);
void comboBox(const QStyleOptionComboBox& option, QPainter* painter, const QWidget* widget,
              const QRect& arrow);
void spinBox(const QStyleOptionSpinBox& option, QPainter* painter, const QWidget* widget,
             const QRect& up, const QRect& down);
void slider(const QStyleOptionSlider& option, QPainter* painter, const QWidget* widget,
            const QRect& groove, const QRect& handle);
void buttonFrame(const QStyleOptionButton& option, QPainter* painter, const QWidget* widget);
void buttonLabel(const QStyleOptionButton& option, QPainter* painter, const QWidget* widget);
void checkBox(const QStyleOptionButton& option, QPainter* painter, const QWidget* widget,
              const QRect& indicator, const QRect& label);
// The box itself, of a control or of a row.
void checkIndicator(const QStyleOption& option, QPainter* painter, const QRect& indicator);
// Expand sign of a tree row.
void branch(const QStyleOption& option, QPainter* painter);
// The handle between two panes.
void splitter(const QStyleOption& option, QPainter* painter);

} // namespace ZELDraw

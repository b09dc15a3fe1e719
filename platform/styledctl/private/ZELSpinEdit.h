// SPDX-License-Identifier: Apache-2.0
#pragma once

class QAbstractSpinBox;
class QLineEdit;

// What all spin boxes of the library have in common.
namespace ZELSpinEdit {

// Number texts in the C locale, one signal per typed value, no focus by wheel, and the line edit
// inside drawn by the library's style.
void prepare(QAbstractSpinBox* box, QLineEdit* edit);

} // namespace ZELSpinEdit

#pragma once

#include <QWidget>

#include <functional>
#include <memory>

/// Calls `answer` with the first active modal dialog for which `counts` is true, or with any if `counts` is
/// empty. Call it before the dialog is opened. The test case fails if none was shown when the returned object
/// is destroyed.
[[nodiscard]] std::shared_ptr<void> whenModal(std::function<void(QWidget *dialog)> answer,
                                              std::function<bool(const QWidget *dialog)> counts = {});

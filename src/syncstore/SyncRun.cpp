#include "syncstore/SyncRun.h"

#include "platform/Errors.h"
#include "platform/Routine.h"

namespace wmoutlook {

namespace {

ProgressDialog& shown(const std::shared_ptr<ProgressDialog>& dialog) {
    if (!dialog) throw ObjectNotSet{"progress dialog"};
    return *dialog;
}

}  // namespace

void showProgressMessage(std::shared_ptr<ProgressDialog> dialog, std::string_view message) {
    statement([&] { shown(dialog).setMessage(message); });
}

void showProgressCaption(std::shared_ptr<ProgressDialog> dialog, std::string_view caption) {
    statement([&] { shown(dialog).setCaption(caption); });
}

void startProgress(std::shared_ptr<ProgressDialog> dialog, std::int32_t maximum) {
    statement([&] { shown(dialog).setValue(1); });
    statement([&] { shown(dialog).setMaximum(maximum); });
}

void stepProgress(std::shared_ptr<ProgressDialog> dialog) {
    statement([&] { shown(dialog).setValue(shown(dialog).value() + 1); });
}

void closeProgress(std::shared_ptr<ProgressDialog>& dialog) {
    const auto held = dialog;
    statement([&] { shown(held).close(); });
    dialog.reset();
}

}  // namespace wmoutlook

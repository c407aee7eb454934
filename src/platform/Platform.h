#pragma once

#include "platform/Date.h"
#include "platform/FileHelper.h"
#include "platform/PrivateProfile.h"
#include "platform/ProgressDialog.h"
#include "platform/Services.h"
#include "platform/outlook/ObjectModel.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace wmoutlook {

class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() = 0;
};

class RandomSource {
public:
    virtual ~RandomSource() = default;
    [[nodiscard]] virtual double next() = 0;  ///< from 0 up to, but not including, 1
};

/// Lets pending events of the host run, so that its windows repaint during a long run.
class MessageLoop {
public:
    virtual ~MessageLoop() = default;
    virtual void yield() = 0;
};

/// What the component needs of the machine that it runs on, beside the host's own services. Everything is set.
struct Platform {
    std::shared_ptr<Clock> clock;
    std::shared_ptr<RandomSource> random;
    std::shared_ptr<MessageLoop> messageLoop;
    std::shared_ptr<FileHelper> files;
    std::shared_ptr<PrivateProfile> privateProfile;
    std::string programFolder;  ///< where the host's program lies, with its pictures below it
    std::shared_ptr<outlook::port::Automation> outlook;
    std::function<std::shared_ptr<WorkingFolderService>()> newWorkingFolder;
    std::function<std::shared_ptr<ProgressDialog>()> newProgressDialog;
};

}  // namespace wmoutlook

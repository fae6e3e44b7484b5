// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/input_check.h"

#include "core/engine/engine.h"
#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/project/project_record.h"
#include "core/project/working_parameters.h"
#include "core/settings/options_record.h"

namespace tarvokol {

bool PrepareWorkingParameters() {
    return PrepareWorkingParameters(ProjectRecord);
}

bool PrepareWorkingParameters(PanelInputs& record) {
    WorkingParameters.CalcStressGrade = OptionsRecord.OutputStrGradUnits;
    const auto refusal = CheckPanel(record, ProjectUnits(), WorkingParameters);
    if (refusal) Notify(refusal->Message(), box_style::Plain);
    return !refusal;
}

}  // namespace tarvokol

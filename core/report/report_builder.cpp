// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/report/report_builder.h"

#include "core/messages/history_log.h"
#include "core/project/description.h"
#include "core/project/input_check.h"
#include "core/project/project_file.h"
#include "core/project/project_record.h"
#include "core/project/project_state.h"
#include "core/project/stability_analysis.h"
#include "core/project/working_parameters.h"
#include "core/settings/option_settings.h"
#include "core/settings/options_record.h"
#include "core/settings/unit_system.h"

namespace tarvokol {

void LoadOutBuf0(const int16_t&) {
    std::string& page = OutputBuffers[0];
    page.clear();
    if (PrintModuleHeader == 1) WriteModuleHeader(page, ProjectFileName, UnitSystem);
    ReformatDescription();
    WriteInputPage(page, DocumentOfRecords());
}

void WriteStabilitySection() {
    WriteStabilitySection(ProjectRecord);
}

void WriteStabilitySection(const PanelInputs& record) {
    OutputBuffers[1].clear();
    WriteFactorPage(OutputBuffers[1], record, WorkingParameters, UnitSystem, StabilityCaseNames);
    LogMessage("TARVO-KOL stability factors calculated");
    ConvertToOutputUnits();
}

void WritePillarSection() {
    OutputBuffers[2].clear();
    WritePillarPage(OutputBuffers[2], WorkingParameters, WorkingParameters.StressUnitLabel, UnitSystem,
                    PillarClassNames, PrintPlotReminder == 1);
}

ReportSettings ReportSettingsInUse() {
    return {PrintModuleHeader == 1,
            PrintPlotReminder == 1,
            {OptionsRecord.OutputStrGradUnits, OptionsRecord.OutputStrUnits},
            StabilityCaseNames,
            PillarClassNames};
}

bool CalculateReport(PanelInputs& record) {
    LastOutputPage = 2;
    if (!PrepareWorkingParameters(record)) return false;
    RunStabilityAnalysis();
    WriteStabilitySection(record);
    WritePillarSection();
    return true;
}

}  // namespace tarvokol

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/main/form_table.h"

#include "desktop/base/form_registry.h"
#include "desktop/graphs/frmGraph.h"
#include "desktop/graphs/frmGraphOpt.h"
#include "desktop/graphs/frmGraphOptS.h"
#include "desktop/graphs/frmGraphS.h"
#include "desktop/help/frmDisclaimer.h"
#include "desktop/help/frmResource.h"
#include "desktop/help/frmUpdate.h"
#include "desktop/input/frmTARVODesc.h"
#include "desktop/input/frmTARVOParm.h"
#include "desktop/main/frmUnsaved.h"
#include "desktop/output/frmPreview.h"
#include "desktop/output/frmResTxtPlt.h"
#include "desktop/output/frmTextBrow.h"
#include "desktop/plan/frmPicture.h"
#include "desktop/settings/frmConvert.h"
#include "desktop/settings/frmPath.h"
#include "desktop/settings/frmSet.h"
#include "desktop/settings/frmTARVOOpts.h"
#include "desktop/settings/frmUnits.h"

namespace tarvokol {
namespace {

template <typename Form>
FormBase& InstanceOf() {
    return Form::Instance();
}

template <typename Form>
void ShowGraph(int index, QWidget* owner) {
    Form& form = Form::Instance();
    form.GraphInit(index);
    form.DrawCurve();
    form.ShowModal(owner);
}

}  // namespace

void EnterAllForms() {
    EnterForm("frmConvert", InstanceOf<frmConvert>);
    EnterForm("frmDisclaimer", InstanceOf<frmDisclaimer>);
    EnterForm("frmGraphOpt", InstanceOf<frmGraphOpt>);
    EnterForm("frmGraphOptS", InstanceOf<frmGraphOptS>);
    EnterForm("frmPath", InstanceOf<frmPath>);
    EnterForm("frmPicture", InstanceOf<frmPicture>);
    EnterForm("frmPreview", InstanceOf<frmPreview>);
    EnterForm("frmResTxtPlt", InstanceOf<frmResTxtPlt>);
    EnterForm("frmResource", InstanceOf<frmResource>);
    EnterForm("frmSet", InstanceOf<frmSet>);
    EnterForm("frmTARVODesc", InstanceOf<frmTARVODesc>);
    EnterForm("frmTARVOOpts", InstanceOf<frmTARVOOpts>);
    EnterForm("frmTARVOParm", InstanceOf<frmTARVOParm>);
    EnterForm("frmTextBrow", InstanceOf<frmTextBrow>);
    EnterForm("frmUnits", InstanceOf<frmUnits>);
    EnterForm("frmUnsaved", InstanceOf<frmUnsaved>);
    EnterForm("frmUpdate", InstanceOf<frmUpdate>);
    EnterGraphForm("frmGraph", ShowGraph<frmGraph>);
    EnterGraphForm("frmGraphS", ShowGraph<frmGraphS>);
}

}  // namespace tarvokol

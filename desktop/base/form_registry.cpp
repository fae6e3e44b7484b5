#include "desktop/base/form_registry.h"

#include <map>

#include "core/runtime/run_time_error.h"
#include "desktop/graphs/frmGraph.h"
#include "desktop/graphs/frmGraphS.h"
#include "desktop/help/frmDisclaimer.h"
#include "desktop/help/frmResource.h"
#include "desktop/help/frmUpdate.h"
#include "desktop/input/frmTARVODesc.h"
#include "desktop/input/frmTARVOParm.h"
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

using Loader = FormBase& (*)();
using GraphOpener = void (*)(int index, QWidget* owner);

// A form enters itself here with one line: {"frmSet", InstanceOf<frmSet>}.
const std::map<std::string_view, Loader> Loaders{
    {"frmConvert", InstanceOf<frmConvert>},     {"frmDisclaimer", InstanceOf<frmDisclaimer>},
    {"frmPath", InstanceOf<frmPath>},           {"frmPicture", InstanceOf<frmPicture>},
    {"frmPreview", InstanceOf<frmPreview>},     {"frmResTxtPlt", InstanceOf<frmResTxtPlt>},
    {"frmResource", InstanceOf<frmResource>},   {"frmSet", InstanceOf<frmSet>},
    {"frmTARVODesc", InstanceOf<frmTARVODesc>}, {"frmTARVOOpts", InstanceOf<frmTARVOOpts>},
    {"frmTARVOParm", InstanceOf<frmTARVOParm>}, {"frmTextBrow", InstanceOf<frmTextBrow>},
    {"frmUnits", InstanceOf<frmUnits>},         {"frmUpdate", InstanceOf<frmUpdate>},
};

// {"frmGraph", ShowGraph<frmGraph>}.
const std::map<std::string_view, GraphOpener> GraphOpeners{
    {"frmGraph", ShowGraph<frmGraph>},
    {"frmGraphS", ShowGraph<frmGraphS>},
};

template <typename Entry>
Entry EntryOf(const std::map<std::string_view, Entry>& table, std::string_view name) {
    const auto found = table.find(name);
    if (found == table.end()) Raise(error_number::InvalidCall);
    return found->second;
}

}  // namespace

FormBase& FormNamed(std::string_view name) {
    return EntryOf(Loaders, name)();
}

void ShowGraphForm(std::string_view name, int index, QWidget* owner) {
    EntryOf(GraphOpeners, name)(index, owner);
}

}  // namespace tarvokol

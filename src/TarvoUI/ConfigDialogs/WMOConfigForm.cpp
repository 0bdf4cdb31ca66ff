#include "WMOConfigForm.h"

WMOConfigForm::WMOConfigForm(TarvoConfigSet* configSet)
    : TarvoAdvConfig(configSet, "WMO Messages", config_forms::wmo()) {
    begin();
}

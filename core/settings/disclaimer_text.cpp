// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings/disclaimer_text.h"

namespace tarvokol {

std::string DisclaimerText(const std::string& support_address) {
    return "Disclaimer of Liability Clause\r\n\r\n"
           "This OLTEK/BRAVN developed software is provided 'AS IS' without warranty "
           "of any kind including express or implied warranties of merchantability "
           "or fitness for a particular purpose. By acceptance and use of this "
           "software, which is conveyed to the user without consideration by OLTEK, the "
           "user expressly waives any and all claims for damage and/or suits for personal "
           "injury or property damage resulting from any direct, indirect, incidental, special "
           "or consequential damages, or damages for loss of profits, revenue, data or "
           "property use, incurred by the user or any third party, whether in an action in contract "
           "or tort, arising from access to, or use of, this software in whole or in part. \r\n\r\n"
           "No further development or upgrades for this software are "
           "planned. Any questions concerning this product can be "
           "directed to the office of the OLTEK design group.\r\n"
           "E-mail: " +
           support_address;
}

}  // namespace tarvokol

#pragma once

#include <QString>

/** @brief One baseline check item, as configured in the field "enableConfig" of baseline.json. */
struct STBLEnableConfig {
    QString name; ///< display name, from "name"
    int itemId = 0; ///< key of the item, from "itemId"
    QString standardValue; ///< expected value as shown to the user, from "standardValue"
    QString extraText; ///< free slot; loading leaves it empty
    QString desc; ///< description, from "desc"
    QString checkValueScript; ///< path of the check script: the script directory and, joined without a separator, the
                              ///< value of "checkValueScript", which is expected to begin with a slash
    QString btntext; ///< text of the item's button, from "btntext"; only for items of type 3, empty for all others
    int type = 0; ///< display type, from "type"; 3: with a button
};

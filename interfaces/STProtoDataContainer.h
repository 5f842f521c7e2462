#pragma once

#include <QtGlobal>

#include <string>

/**
 * @brief One row of a check-box list whose content is a message of the backend.
 *
 * How a manager finds a row differs, and is kept so: ITavCompleteProtectMgr and ITavProExceptionMgr search for the
 * stored `index`, ITavNetControlMgr takes it as the position in the list.
 */
struct STProtoDataContainer {
    bool isChecked = false; ///< check mark of the row
    qint32 index = 0; ///< number of the row, given by the page when it builds the list
    std::string protoData; ///< the row's message, serialised; may hold any byte, zero included; never parsed here
};

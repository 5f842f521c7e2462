#pragma once

#include "Contest.h"

#include "TavPluginHost.h"

class TwoSystemRoots;

/**
 * @brief All operations of all managers, as contests. Each call fills what its contest needs before it returns, so
 * that no read is the first one.
 */
namespace Contests
{
/// Whether pages' lists are also emptied by clearCacheData meanwhile; they may then be found empty.
enum class Clearing { No, Yes };

/// The setters and getters of the values that are only held.
std::vector<Contest> heldValues(TavPluginHost &host);

/// The pages' lists, replaced as a whole and edited by the row.
std::vector<Contest> rows(TavPluginHost &host);

/// The lists and tables of the access-control pages.
std::vector<Contest> accessControl(TavPluginHost &host, Clearing clearing);

/// The network devices and the reversal of their states.
std::vector<Contest> devices(TavPluginHost &host);

/// The selected page, without anybody who wants to hear of it.
std::vector<Contest> selection(TavPluginHost &host);

/// The catalogue and the check items, loaded from files again and again.
std::vector<Contest> configurations(TavPluginHost &host, const TwoSystemRoots &roots);

/// Images, looked up only: that manager has no lock, and appending is one thread's business.
std::vector<Contest> pictures(TavPluginHost &host);

/// Every manager asked for itself.
std::vector<Contest> objects(TavPluginHost &host);
}

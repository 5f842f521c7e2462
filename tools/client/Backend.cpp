#include "Backend.h"

#include "LocalAgent.h"

AgentReport feedFromThisMachine()
{
    LocalAgent agent;
    return agent.feedAndWait(backendPatience * 1000);
}

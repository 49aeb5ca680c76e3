#pragma once

// One COMMAND_LONG as the aircraft handle sends it. confirmation counts the
// copies already sent (0 for the first); targetComponent 0 addresses every
// component of the aircraft.
struct CLMCommandLongParam {
    int command = 0;
    int confirmation = 0;
    float param1 = 0.0f;
    float param2 = 0.0f;
    float param3 = 0.0f;
    float param4 = 0.0f;
    float param5 = 0.0f;
    float param6 = 0.0f;
    float param7 = 0.0f;
    int targetComponent = 0;
};

#include "user_steps.h"

void SetUserPresent(bool) {}

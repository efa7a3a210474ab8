#include "tests/sqlite/LinhasDe.h"

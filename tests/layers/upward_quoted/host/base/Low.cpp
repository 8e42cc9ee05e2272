#include "../toolkit/High.h"

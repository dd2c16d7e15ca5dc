#include <quorvel/frame/lengthy_operation.h>

CLengthyOperationHandler::~CLengthyOperationHandler() = default;

void CLengthyOperationHandler::PumpMessages() {}

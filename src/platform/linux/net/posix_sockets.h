// The system's socket headers, for the code that implements Winsock.
#pragma once

#include <quorvel/platform/sockets.h>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>

// Numbers that are the same in Winsock.
static_assert(SD_RECEIVE == SHUT_RD && SD_SEND == SHUT_WR && SD_BOTH == SHUT_RDWR);

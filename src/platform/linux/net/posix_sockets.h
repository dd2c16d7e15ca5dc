// The system's socket headers, for the sources that stand between them and Winsock.
#pragma once

#include <quorvel/platform/sockets.h>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>

// The numbers that are Winsock's too.
static_assert(SD_RECEIVE == SHUT_RD && SD_SEND == SHUT_WR && SD_BOTH == SHUT_RDWR);

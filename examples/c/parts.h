/* The two halves of the example. On a real bus each is a process of its own; `user` is its user on the bus. */
#ifndef EXAMPLE_PARTS_H
#define EXAMPLE_PARTS_H

/* Makes the user serve. Result: 0, or an error code of the library. */
int service_start(void *user);

/* Sends two requests to the user named `service`. Result: 0, or an error code of the library. */
int client_start(void *user, const char *service);

/* Result: how many of the client's three answers and notifications have come. */
int client_received(void);

#endif

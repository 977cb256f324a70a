/* The tests that docs/testing.md shows, on the example's service and client. */

#include "testing.md.h"

#include "client.h"
#include "service.h"

int main(void)
{
    return !refuses_a_small_mtu(service_start) || !asks_again_after_a_refusal(client_start);
}

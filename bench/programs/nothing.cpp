// A program that does nothing: the floor under every start-up time.
int main() { return 0; }

// The program whose precompiled headers all tests use.
int main() {}

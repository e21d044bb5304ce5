// Carries precompiled.h; there is nothing else in it.
int main()
{
    return 0;
}

#version 330

#define LIGHTS_MAX 8

layout(location = 0) in vec3 in_position;
layout(location = 1) in vec2 in_uv;
layout(location = 2) in vec3 in_normal;
layout(location = 3) in vec3 in_tangent;
layout(location = 4) in vec3 in_bitangent;

uniform mat4 modelToView;
uniform mat4 worldToView;
uniform mat4 projection;
uniform vec3 light_position[LIGHTS_MAX];

out VertOutputs
{
    vec2 vert_uv;
    vec3 vert_normal;
    vec3 vert_pos;
    vec3 tg_light_pos[LIGHTS_MAX];
    vec3 tg_frag_pos;
} vs_out;

vec3 project(vec3 a, vec3 b)
{
    return (dot(a, b) / dot(b, b)) * b;
}

void main()
{
    gl_Position = projection * modelToView * vec4(in_position, 1.0f);
    vec3 view_pos = vec3(modelToView * vec4(in_position, 1.0f));

    vec3 normal = normalize(vec3(modelToView * vec4(in_normal, 0.0f)));
    vec3 tangent = normalize(vec3(modelToView * vec4(in_tangent, 0.0f)));
    vec3 bitangent = normalize(vec3(modelToView * vec4(in_bitangent, 0.0f)));

    // Gram-Schmidt
    tangent = normalize(tangent - project(tangent, normal));
    bitangent = normalize(bitangent - project(bitangent, normal) - project(bitangent, tangent));

    // View space to tangent space. The camera, at the origin, stays there.
    mat3 tbni = transpose(mat3(tangent, bitangent, normal));
    for (int i = 0; i < LIGHTS_MAX; ++i) {
        vs_out.tg_light_pos[i] = tbni * vec3(worldToView * vec4(light_position[i], 1.0f));
    }
    vs_out.tg_frag_pos = tbni * view_pos;
    vs_out.vert_uv = in_uv;
    vs_out.vert_normal = normal;
    vs_out.vert_pos = view_pos;
}
